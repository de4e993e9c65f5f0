#pragma once

#include <gtest/gtest.h>

#include "link/HandsetLink.h"
#include "support/SimulatedPhone.h"

namespace tarnbridge::test {

/// A handset and a link whose port is open on it, both on virtual time.
struct HandsetSession {
    explicit HandsetSession(VirtualHandsetOptions options = {}) : handset(clock, std::move(options)) {
        EXPECT_TRUE(Connect());
    }
    ~HandsetSession() { link.Disconnect(false); }

    bool Connect() {
        LinkKind kind{};
        return link.Connect("phone", kind);
    }

    /// Ends the session and makes a new one, in which the handset is looked at afresh.
    void Reconnect() {
        link.Disconnect(false);
        EXPECT_TRUE(Connect() && link.EnsureSession());
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

    VirtualTime clock;
    SimulatedPhone handset;
    HandsetLink link{clock, handset.Factory()};
};

}  // namespace tarnbridge::test
