#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/app/Profile.h"
#include "core/base/BackgroundWorker.h"
#include "link/HandsetLink.h"
#include "messaging/MessageDownload.h"
#include "messaging/MessageOutcome.h"
#include "messaging/MessageTree.h"
#include "support/SimulatedPhone.h"

namespace tarnbridge::test {

/// What a program that is killed leaves.
struct Disk {
    std::string profile;
    std::atomic<bool> frozen{false};  ///< the program is dead: nothing it does reaches the disk
};

/// The program: the link, the worker and the folders, which come from the disk and go there.
class Program : public MessageKeeper {
public:
    Program(VirtualTime& time, SimulatedPhone& phone, Disk& disk);
    ~Program() override;

    bool Connect();

    /// Whether the handset answers, at the third try at the latest.
    bool ComesBack();

    /// Reads the handset into the mirror.
    MessageDownload::Report Read(bool& lost);

    void PcFoldersChanged() override {}
    bool SaveNow() override;
    VirtualTime& Time() { return time_; }

    HandsetLink link;
    BackgroundWorker worker;
    Profile profile;
    MessageTree tree;
    bool loadedWhole = false;

private:
    VirtualTime& time_;
    Disk& disk_;
};

/// A phone with messages, a disk with messages, and nobody's program yet. Each message is told from all
/// others by its text.
class World {
public:
    World();

    /// Messages of the phone by their name: `a` and `u` (unread) on the SIM, `l` (of three parts) and `b`,
    /// `c`, `d` on the phone. Those of the PC, in the Outbox: `p` and `r` (of three parts) to three
    /// numbers, `q` and `s` (of three parts) to one.
    static std::u16string TextOf(char name);

    VirtualTime time;
    SimulatedPhone phone;
    Disk disk;
};

/// Where the messages are, by name: how often whole, and how often in pieces.
struct Census {
    std::map<char, int> onPhone;
    std::map<char, int> onPc;
    std::map<char, int> pieces;
    std::string strange;  ///< texts that are none of the messages
};

/// Looks at the mirror, which has just been read, and at the folders of the PC.
Census Count(const MessageTree& tree);

/// The record of this name in a folder; null if there is none.
SmsRecord* Find(MessageFolder& folder, char name);

}  // namespace tarnbridge::test
