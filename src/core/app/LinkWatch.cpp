#include "core/app/LinkWatch.h"

#include <utility>

#include "core/app/FrameMessages.h"
#include "core/base/StringTable.h"

namespace tarnbridge {

LinkWatch::LinkWatch(HandsetLink& link, BackgroundWorker& worker, UserInteraction& user,
                     std::function<LinkAddress()> address)
    : link_(link), worker_(worker), user_(user), address_(std::move(address)) {}

void LinkWatch::Tick() {
    if (closing_ || stepUnderWay_) return;
    if (link_.IsPortOpen()) {
        worker_.RequestSessionCheck(window_);
    } else {
        used_ = address_();
        Do([this] { return Open(); });
    }
}

LinkWatch::News LinkWatch::TakeAnswer(bool answers) {
    // An answer that was under way when a step began is about a link that is no more.
    if (closing_ || stepUnderWay_) return News::None;
    const bool before = std::exchange(connected_, answers);
    if (answers) return before ? News::StillConnected : News::Connected;
    Do([this] {
        TakeApart();
        return SerialOpenFailure();
    });
    return News::Disconnected;
}

void LinkWatch::StepDone(const SerialOpenFailure& failure) {
    openFailure_ = failure;
    stepUnderWay_ = false;
    if (closing_) return;
    if (address_() != used_) {
        Reconnect();
    } else if (link_.IsPortOpen()) {
        worker_.RequestSessionCheck(window_);
    }
}

void LinkWatch::Reconnect() {
    // A step under way looks at the address when it is done.
    if (closing_ || stepUnderWay_ || address_() == used_) return;
    used_ = address_();
    connected_ = false;
    Do([this] {
        TakeApart();
        return Open();
    });
}

void LinkWatch::Close(TeardownThread::Step steps) {
    closing_ = true;
    if (!thread_.Do(steps)) steps();
}

/// On the teardown thread, as TakeApart.
SerialOpenFailure LinkWatch::Open() {
    LinkKind kind{};
    const bool open = link_.Connect(used_.portName, kind, used_.baudRate, used_.flowControl);
    return open ? SerialOpenFailure() : link_.OpenFailure();
}

void LinkWatch::TakeApart() {
    link_.Disconnect(true);
    worker_.Stop();
    if (!worker_.Start(link_)) user_.Tell(Words(Word::BackgroundThreadFailed));
}

void LinkWatch::Do(const std::function<SerialOpenFailure()>& step) {
    stepUnderWay_ = thread_.Do([this, step] {
        Message done{LinkStepDone, 0, 0, MessagePayload::Of(step())};
        if (const auto window = window_.lock()) window->Post(std::move(done));
    });
}

}  // namespace tarnbridge
