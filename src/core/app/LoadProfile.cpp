#include "core/app/ProfileFormat.h"
#include "core/app/ProfileRecords.h"

namespace tarnbridge {
namespace {

enum class FolderRead { Nothing, OtherTag, Content };

void Read(ProfileReader& in, FolderAttributes& attributes) {
    for (uint32_t* const field :
         {&attributes.systemKind, &attributes.readOnly, &attributes.folderKind, &attributes.imageIndex})
        *field = in.U32();
    for (uint8_t* const field : {&attributes.allowsSubfolders, &attributes.userFolder, &attributes.flag2,
                                 &attributes.flag3, &attributes.flag4})
        *field = in.U8();
}

/// Reads a folder up to the count of its children. Nothing is changed unless its tag is right.
template <typename Record>
FolderRead ReadFolder(ProfileReader& in, FolderNode<Record>& folder, uint32_t& children) {
    children = 0;
    const std::string_view tag = in.Raw(folderTag.size());
    in.U32();
    in.U32();
    if (!in.Good()) return FolderRead::Nothing;
    if (tag != folderTag) return FolderRead::OtherTag;

    std::u16string name = in.Wide();
    FolderAttributes attributes;
    Read(in, attributes);
    if (!in.Good()) attributes = {};
    typename FolderNode<Record>::RecordList records;
    const uint32_t count = in.U32();
    for (uint32_t i = 0; i < count && in.HasMore(); ++i) {
        records.push_back(std::make_unique<Record>());
        ReadRecord(in, *records.back());
    }
    children = in.U32();

    const std::lock_guard guard(folder.lock);
    folder.name = std::move(name);
    folder.attributes = attributes;
    folder.records.swap(records);
    return FolderRead::Content;
}

/// Whether every tag was right.
template <typename Record>
bool ReadTree(ProfileReader& in, FolderNode<Record>& root) {
    struct Level {
        FolderNode<Record>* folder;
        uint32_t left;
    };
    uint32_t children = 0;
    if (ReadFolder(in, root, children) != FolderRead::Content) return false;
    root.RemoveChildren();
    bool rightTags = true;
    std::vector<Level> levels{{&root, children}};
    while (!levels.empty()) {
        if (levels.back().left == 0) {
            levels.pop_back();
            continue;
        }
        auto child = std::make_unique<FolderNode<Record>>();
        const FolderRead read = ReadFolder(in, *child, children);
        if (read == FolderRead::Nothing) break;
        if (read == FolderRead::OtherTag) rightTags = false;
        --levels.back().left;
        FolderNode<Record>& attached = levels.back().folder->Append(std::move(child));
        levels.push_back({&attached, children});
    }
    return rightTags;
}

}  // namespace

ProfileLoad LoadProfile(std::string_view stream, Profile& profile) {
    ProfileReader in(stream);
    if (in.Raw(profileMagic.size()) != profileMagic || in.U32() != profileVersion || in.U32() != 0 ||
        !in.Good())
        return ProfileLoad::Foreign;

    const bool messagesRight = ReadTree(in, profile.messageRoot);
    const bool contactsRight = ReadTree(in, profile.contactRoot);
    for (bool* const flag : {&profile.lotusNotesOn, &profile.outlookOn, &profile.outlookExpressOn})
        *flag = in.U32() != 0;
    profile.lotusNotesPath = in.Wide();
    const uint32_t connections = in.U32();
    for (uint32_t i = 0; i < connections && in.HasMore(); ++i) {
        ConnectionEntry connection;
        connection.name = in.Wide();
        connection.operatorName = in.Wide();
        connection.apn = in.Wide();
        profile.connections.push_back(std::move(connection));
    }
    const bool whole = messagesRight && contactsRight && in.Good() && in.Left() == 0;
    return whole ? ProfileLoad::Whole : ProfileLoad::Damaged;
}

}  // namespace tarnbridge
