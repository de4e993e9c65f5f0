#pragma once

#include <gtest/gtest.h>

#include "link/HandsetLink.h"
#include "platform/FileEntryStore.h"
#include "platform/PortMap.h"
#include "support/ManualClock.h"
#include "support/VirtualHandset.h"

namespace tarnbridge::test {

/// A virtual handset and a link whose port is open on it. An exchange that stays unanswered ends after 300
/// ms.
struct HandsetSession {
    explicit HandsetSession(VirtualHandsetOptions options = {}) : handset(std::move(options)) {
        link.commandTimeout = 300;
        LinkKind kind{};
        EXPECT_TRUE(link.Connect(handset.Path(), kind));
    }
    ~HandsetSession() { link.Disconnect(false); }

    /// Ends the session and makes a new one, in which the handset is looked at afresh.
    void Reconnect() {
        link.Disconnect(false);
        LinkKind kind{};
        EXPECT_TRUE(link.Connect(handset.Path(), kind) && link.EnsureSession());
    }

    /// How many messages the memories hold. A SIM of 0 is none.
    void SetCapacities(int sim, int phone) {
        handset.With([&](simulator::HandsetContent& content) {
            content.simMessages.capacity = sim;
            content.phoneMessages.capacity = phone;
            return 0;
        });
        Reconnect();
    }

    /// What the handset tells of the messages that it can store: `(0-3)` is all, `ERROR` all but received
    /// ones.
    void SetStoreQuery(const std::string& answer) {
        handset.With(
            [&](simulator::HandsetContent& content) { return content.features.storeQuery = answer; });
        Reconnect();
    }

    TemporaryFolder folder;
    FileEntryStore store{folder / "Test.conf"};
    PortMap ports{store};
    NoSleepClock clock;
    VirtualHandset handset;
    HandsetLink link{clock, SystemSerialDevices(ports)};
};

}  // namespace tarnbridge::test
