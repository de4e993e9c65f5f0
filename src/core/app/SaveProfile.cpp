#include "core/app/ProfileFormat.h"
#include "core/app/ProfileRecords.h"

namespace tarnbridge {
namespace {

void Write(ProfileWriter& out, const FolderAttributes& attributes) {
    for (const uint32_t field :
         {attributes.systemKind, attributes.readOnly, attributes.folderKind, attributes.imageIndex})
        out.U32(field);
    for (const uint8_t field : {attributes.allowsSubfolders, attributes.userFolder, attributes.flag2,
                                attributes.flag3, attributes.flag4})
        out.U8(field);
}

/// The order of the file is that in which the folders come off the stack: each before its children.
template <typename Record>
void WriteTree(ProfileWriter& out, const FolderNode<Record>& root) {
    std::vector<const FolderNode<Record>*> pending{&root};
    while (!pending.empty()) {
        const FolderNode<Record>& folder = *pending.back();
        pending.pop_back();
        const Mirrored mirrored = MirroredIn(folder);

        const std::lock_guard guard(folder.lock);
        out.Raw(folderTag);
        out.U32(folderVersion);
        out.U32(0);
        out.Wide(folder.name);
        Write(out, folder.attributes);
        out.Count(mirrored.records ? 0 : folder.records.size());
        if (!mirrored.records) {
            for (const auto& record : folder.records)
                WriteRecord(out, *record);
        }
        out.Count(mirrored.children ? 0 : folder.children.size());
        if (!mirrored.children) {
            for (auto child = folder.children.rbegin(); child != folder.children.rend(); ++child)
                pending.push_back(child->get());
        }
    }
}

}  // namespace

void SaveProfile(Profile& profile, const ByteSink& sink) {
    ProfileWriter out(sink);
    out.Raw(profileMagic);
    out.U32(profileVersion);
    out.U32(0);
    WriteTree(out, profile.messageRoot);
    WriteTree(out, profile.contactRoot);
    for (const bool flag : {profile.lotusNotesOn, profile.outlookOn, profile.outlookExpressOn})
        out.U32(flag ? 1 : 0);
    out.Wide(profile.lotusNotesPath);
    out.Count(profile.connections.size());
    for (const ConnectionEntry& connection : profile.connections) {
        out.Wide(connection.name);
        out.Wide(connection.operatorName);
        out.Wide(connection.apn);
    }
    out.Flush();
}

}  // namespace tarnbridge
