#include <gtest/gtest.h>

#include "core/app/ProfileFormat.h"
#include "core/app/SampleProfile.h"
#include "messaging/ems/Ems.h"

namespace tarnbridge {
namespace {

using namespace std::string_literals;
using test::FolderHead;
using test::Number32;
using test::SampleBytes;
using test::Saved;
using test::WideField;

const std::string start = "TARNBRIDGE PROFILE\2\0\0\0\0\0\0\0"s;
const std::string none(4, '\0');
constexpr uint32_t countless = 0xFFFFFFFF;

size_t CountFolders(const MessageFolder& root) {
    size_t count = 0;
    std::vector<const MessageFolder*> pending{&root};
    for (; !pending.empty(); ++count) {
        const MessageFolder& folder = *pending.back();
        pending.pop_back();
        for (const auto& child : folder.children)
            pending.push_back(child.get());
    }
    return count;
}

TEST(ProfileFormat, EveryByteIsWhereTheFormatHasIt) {
    Profile profile;
    test::FillSample(profile);
    EXPECT_EQ(Saved(profile), SampleBytes());
}

TEST(ProfileFormat, EveryFieldComesBack) {
    Profile profile;
    ASSERT_EQ(LoadProfile(SampleBytes(), profile), ProfileLoad::Whole);
    EXPECT_EQ(Saved(profile), SampleBytes());
    const MessageFolder& user = *profile.messageRoot.Child(1)->Child(0);
    EXPECT_EQ(user.parent->parent, &profile.messageRoot);
    EXPECT_FALSE(user.records.at(0)->emsMessage) << "records in a list hold no slot";
}

TEST(ProfileFormat, MirrorsAreWrittenEmptyAndStayInMemory) {
    Profile profile;
    const auto add = [](auto& parent, auto folder) -> auto& {
        return parent.Append(std::move(folder));
    };
    const auto addMessages = [&](MessageFolder& parent) -> MessageFolder& {
        MessageFolder& folder = add(parent, std::make_unique<MessageFolder>());
        folder.Append(std::make_unique<SmsRecord>());
        return folder;
    };
    const auto addContacts = [&](ContactFolder& parent, uint32_t kind) -> ContactFolder& {
        ContactFolder& folder = add(parent, std::make_unique<ContactFolder>());
        folder.attributes.folderKind = kind;
        folder.Append(std::make_unique<Contact>());
        return folder;
    };
    MessageFolder& handset = addMessages(profile.messageRoot);
    MessageFolder& inbox = addMessages(handset);
    addMessages(inbox);
    addMessages(addMessages(profile.messageRoot));
    addContacts(addContacts(profile.contactRoot, handsetFolder), madeByUser);
    ContactFolder& pc = addContacts(profile.contactRoot, pcFolder);
    addContacts(pc, addressBookFolder);
    ContactFolder& book = addContacts(profile.contactRoot, addressBookFolder);
    addContacts(book, madeByUser);

    const auto shape = [](Profile& loaded) {
        std::string text;
        const auto describe = [&text](const auto& describeNext, const auto& folder) -> void {
            text += std::to_string(folder.records.size());
            for (const auto& child : folder.children)
                text += '(', describeNext(describeNext, *child), text += ')';
        };
        describe(describe, loaded.messageRoot);
        text += ' ';
        describe(describe, loaded.contactRoot);
        return text;
    };
    const std::string inMemory = shape(profile);
    EXPECT_EQ(inMemory, "0(1(1(1)))(1(1)) 0(1(1))(1(1))(1(1))");
    const std::string saved = Saved(profile);
    EXPECT_EQ(shape(profile), inMemory);
    Profile loaded;
    ASSERT_EQ(LoadProfile(saved, loaded), ProfileLoad::Whole);
    EXPECT_EQ(shape(loaded), "0(1(0(1)))(1(1)) 0(0)(1(1))(0(1))");
    EmptyMirrors(profile);
    EXPECT_EQ(shape(profile), shape(loaded));
    EXPECT_EQ(Saved(profile), saved);
}

TEST(ProfileFormat, AnEmsMessageIsWrittenAsItsPartsAndStays) {
    EmsInit(uint8_t{0});
    Profile profile;
    MessageFolder& folder = profile.messageRoot;
    SmsRecord& record = folder.Append(std::make_unique<SmsRecord>());
    record.text8 = "Hi";
    ASSERT_TRUE(record.EnsureEmsMessage());
    ASSERT_EQ(AddObject(record.emsMessage.Get(), EmsKind::PredefinedSound, nullptr, uint8_t{3}),
              EmsResult::Done);
    const std::string saved = Saved(profile);
    EXPECT_TRUE(record.rawParts.empty()) << "lent for the write alone";
    EXPECT_TRUE(record.emsMessage);
    Profile loaded;
    ASSERT_EQ(LoadProfile(saved, loaded), ProfileLoad::Whole);
    const SmsRecord& back = *loaded.messageRoot.records.at(0);
    EXPECT_EQ(back.hasHeader, 1);
    ASSERT_EQ(back.rawParts.size(), 1u);
    EXPECT_NE(back.rawParts[0].find("Hi"), std::string::npos);

    record.rawParts = {"as received"};
    ASSERT_EQ(LoadProfile(Saved(profile), loaded), ProfileLoad::Whole);
    EXPECT_EQ(loaded.messageRoot.records.at(0)->rawParts, record.rawParts);
    record.emsMessage = {};
}

TEST(ProfileFormat, EveryPrefixKeepsWhatWasRead) {
    const std::string whole = SampleBytes();
    size_t folders = 1;
    for (size_t size = 0; size < whole.size(); ++size) {
        Profile profile;
        // A copy of just that size, so that a byte read behind it doesn't go unseen.
        const std::vector<char> prefix(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        const ProfileLoad load = LoadProfile({prefix.data(), prefix.size()}, profile);
        EXPECT_EQ(load, size < start.size() ? ProfileLoad::Foreign : ProfileLoad::Damaged) << size;
        const size_t nowThere = CountFolders(profile.messageRoot);
        EXPECT_GE(nowThere, folders) << size;
        folders = nowThere;
        Profile again;
        EXPECT_EQ(LoadProfile(Saved(profile), again), ProfileLoad::Whole) << size;
    }
    EXPECT_EQ(folders, 4u);
}

TEST(ProfileFormat, EveryFlippedByteEnds) {
    const std::string whole = SampleBytes();
    for (size_t i = 0; i < whole.size(); ++i) {
        for (const int mask : {0x01, 0x80, 0xFF}) {
            std::string flipped = whole;
            flipped[i] = static_cast<char>(flipped[i] ^ mask);
            Profile profile;
            const ProfileLoad load = LoadProfile(flipped, profile);
            EXPECT_EQ(load == ProfileLoad::Foreign, i < start.size()) << i;
            // Whatever is whole is written again as it was read, unless a terminating zero was lost.
            Profile again;
            const std::string saved = Saved(profile);
            EXPECT_EQ(LoadProfile(saved, again), ProfileLoad::Whole) << i;
            EXPECT_EQ(Saved(again), saved) << i;
        }
    }
}

TEST(ProfileFormat, OddStreams) {
    const std::string empty = FolderHead("") + none + none;
    const std::string tail = none + none + none + WideField("") + none;
    const std::string otherFolder = "XFOL\1\0\0\0\0\0\0\0"s;
    const struct Row {
        const char* fault;
        std::string stream;
        ProfileLoad load;
        size_t folders;
        size_t messages;
    } rows[] = {
        {"nothing in it", start + empty + empty + tail, ProfileLoad::Whole, 1, 0},
        {"version 1", "TARNBRIDGE PROFILE\1\0\0\0\0\0\0\0"s + empty + empty + tail, ProfileLoad::Foreign, 1,
         0},
        {"a reserved word", "TARNBRIDGE PROFILE\2\0\0\0\1\0\0\0"s + empty + empty, ProfileLoad::Foreign, 1,
         0},
        {"bytes behind the end", start + empty + empty + tail + "x", ProfileLoad::Damaged, 1, 0},
        {"tag versions that nobody checks", start + "MFOL\7\0\0\0\7\0\0\0"s + empty.substr(12) + empty + tail,
         ProfileLoad::Whole, 1, 0},
        {"the root's tag is another: the rest is read as the next field", start + otherFolder + empty + tail,
         ProfileLoad::Damaged, 1, 0},
        {"a folder's tag is another: it stays, empty, and the next is read",
         start + FolderHead("") + none + Number32(2) + otherFolder + empty + empty + tail,
         ProfileLoad::Damaged, 3, 0},
        {"a text of count 0", start + "MFOL\1\0\0\0\0\0\0\0\0\0\0\0"s + empty.substr(18) + empty + tail,
         ProfileLoad::Whole, 1, 0},
        {"countless messages, none there", start + FolderHead("") + Number32(countless), ProfileLoad::Damaged,
         1, 0},
        {"countless messages, one there",
         start + FolderHead("") + Number32(countless) + std::string(85, '\0'), ProfileLoad::Damaged, 1, 1},
        {"countless folders", start + FolderHead("") + none + Number32(countless) + empty,
         ProfileLoad::Damaged, 2, 0},
        {"countless raw parts",
         start + FolderHead("") + Number32(1) + std::string(81, '\0') + Number32(countless) + none + none,
         ProfileLoad::Damaged, 1, 1},
        {"countless units", start + "MFOL\1\0\0\0\0\0\0\0"s + Number32(countless) + "x\0",
         ProfileLoad::Damaged, 1, 0},
        {"countless connections",
         start + empty + empty + none + none + none + WideField("") + Number32(countless) + WideField("a"),
         ProfileLoad::Damaged, 1, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.fault);
        Profile profile;
        EXPECT_EQ(LoadProfile(row.stream, profile), row.load);
        EXPECT_EQ(CountFolders(profile.messageRoot), row.folders);
        EXPECT_EQ(profile.messageRoot.records.size(), row.messages);
    }
}

TEST(ProfileFormat, AMillionLevels) {
    constexpr size_t levels = 1'000'000;
    const std::string level = FolderHead("") + none + Number32(1);
    std::string stream = start;
    for (size_t i = 0; i + 1 < levels; ++i)
        stream += level;
    stream += FolderHead("") + none + none;
    const std::string end = FolderHead("") + none + none + none + none + none + WideField("") + none;
    Profile profile;
    ASSERT_EQ(LoadProfile(stream + end, profile), ProfileLoad::Whole);
    EXPECT_EQ(CountFolders(profile.messageRoot), levels);
    EXPECT_TRUE(Saved(profile) == stream + end);
    // Cut in the deepest folder.
    EXPECT_EQ(LoadProfile(stream.substr(0, stream.size() - 1), profile), ProfileLoad::Damaged);
    EXPECT_EQ(CountFolders(profile.messageRoot), levels);
}

}  // namespace
}  // namespace tarnbridge
