#include "simulator/Session.h"

namespace tarnbridge::simulator {

Session Session::Begin(const HandsetContent& content, const Features& features, const Session& before) {
    Session session;
    if (content.Messages("SM") == nullptr) session.memories.fill("ME");
    if (content.simContacts.capacity == 0) session.storage = "ME";
    session.channelMode = features.channelMode;
    session.clockAhead = before.clockAhead;
    session.minutesEastOfUtc = before.minutesEastOfUtc;
    session.messageReference = before.messageReference;
    session.changes = before.changes;
    return session;
}

}  // namespace tarnbridge::simulator
