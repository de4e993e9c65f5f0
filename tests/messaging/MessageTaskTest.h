#pragma once

#include "core/base/BackgroundWorker.h"
#include "core/base/HandsetTask.h"
#include "messaging/MessageTree.h"
#include "messaging/ems/Ems.h"
#include "support/HandsetSession.h"

namespace tarnbridge::test {

/// Counts, and saves as told.
struct FakeKeeper : MessageKeeper {
    void PcFoldersChanged() override { ++changes; }
    bool SaveNow() override {
        ++saves;
        return !fails;
    }

    int changes = 0;
    int saves = 0;
    bool fails = false;
};

/// The fixed folders below a root.
inline MessageTree MakeTree(MessageFolder& root) {
    for (const size_t count : {size_t{4}, size_t{6}}) {
        MessageFolder& side = root.Append(std::make_unique<MessageFolder>());
        for (size_t i = 0; i < count; ++i)
            side.Append(std::make_unique<MessageFolder>());
    }
    return MessageTree(root);
}

/// A handset of 20 and 100 locations, the worker, and a tree of the fixed folders.
class MessageTask : public ::testing::Test {
protected:
    MessageTask() {
        EmsInit(1);
        session.SetCapacities(20, 100);
        EXPECT_TRUE(worker.Start(link));
        session.handset.ForgetCommands();
    }
    ~MessageTask() override {
        worker.Stop();
        EmsShutdown();
    }

    /// A message in a folder, composed here unless it has another status.
    SmsRecord& Put(MessageFolder& folder, const std::u16string& text, int status = smsComposed) {
        auto record = std::make_unique<SmsRecord>();
        record->emsMessage = EmsHandle::Make(0);
        EXPECT_EQ(AddText(record->emsMessage.Get(), text), EmsResult::Done);
        record->SettleParts();
        record->text8.assign(text.begin(), text.end());
        record->address = SmsAddress("+4670123", 0);
        record->status = status;
        record->storage = u"PC";
        return folder.Append(std::move(record));
    }

    /// A message on the handset and in the mirror.
    SmsRecord& PutOnHandset(const std::u16string& text, int status, std::u16string_view memory = u"ME") {
        SmsRecord& record = Put(tree.OnHandset(PlaceOfStatus(status)), text, status);
        EXPECT_TRUE(record.EnsureEmsMessage());
        int error = 0;
        EXPECT_TRUE(record.Write(link, memory, error));
        record.SettleParts();
        return record;
    }

    static std::vector<std::string> Texts(const MessageFolder& folder) {
        std::vector<std::string> texts;
        for (const auto& record : folder.records)
            texts.push_back(record->text8);
        return texts;
    }

    HandsetSession session;
    HandsetLink& link = session.link;
    BackgroundWorker worker;
    MessageFolder root;
    MessageTree tree = MakeTree(root);
    FakeKeeper keeper;
};

}  // namespace tarnbridge::test
