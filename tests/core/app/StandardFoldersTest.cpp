#include <gtest/gtest.h>

#include "core/app/ProfileFormat.h"
#include "core/app/SampleProfile.h"
#include "core/app/StandardFolders.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

const FolderNames english = {u"Handset Folder", u"PC Folder", u"Inbox",           u"Outbox",
                             u"Sent Message",   u"Draft",     u"Personal Folder", u"Trash Can",
                             u"Handset folder", u"PC folder", u"Trash can"};
const FolderNames other = {u"a", u"b", u"c", u"d", u"e", u"f", u"g", u"h", u"i", u"j", u"k"};

/// One line a folder: its depth, its name and the attributes that differ between folders.
template <typename Record>
void Describe(const FolderNode<Record>& folder, size_t depth, std::string& text) {
    const FolderAttributes& its = folder.attributes;
    text += std::string(depth * 2, ' ') + TextToUtf8(folder.name);
    for (const uint32_t field :
         {its.systemKind, its.readOnly, its.folderKind, its.imageIndex, uint32_t{its.allowsSubfolders},
          uint32_t{its.userFolder}, uint32_t{its.flag2}, uint32_t{its.flag3}, uint32_t{its.flag4}})
        text += " " + std::to_string(field);
    text += '\n';
    for (const auto& child : folder.children)
        Describe(*child, depth + 1, text);
}

template <typename Record>
std::string Describe(const FolderNode<Record>& folder) {
    std::string text;
    Describe(folder, 0, text);
    return text;
}

TEST(StandardFolders, AreMadeWhereThereWasNoFile) {
    Profile profile;
    EnsureStandardFolders(profile, english);
    EXPECT_EQ(Describe(profile.messageRoot), R"( 0 0 0 0 0 0 0 0 0
  Handset Folder 0 0 0 0 0 0 1 0 1
    Inbox 0 0 0 0 0 0 1 0 1
    Outbox 0 0 0 0 0 0 1 0 1
    Sent Message 0 0 0 0 0 0 1 0 1
    Draft 0 0 0 0 0 0 1 0 1
  PC Folder 0 0 1 1 0 0 1 1 1
    Inbox 0 0 1 1 0 0 1 1 1
    Outbox 0 0 1 1 0 0 1 1 1
    Sent Message 0 0 1 1 0 0 1 1 1
    Draft 0 0 1 1 0 0 1 1 1
    Personal Folder 0 0 1 1 1 0 1 1 1
    Trash Can 0 0 2 2 0 0 1 1 1
)");
    EXPECT_EQ(Describe(profile.contactRoot), R"( 0 0 0 0 0 0 0 0 0
  Handset folder 0 0 0 0 0 0 1 0 1
  PC folder 0 0 1 1 1 0 1 1 1
  Trash can 0 0 2 2 1 0 1 1 1
)");
}

TEST(StandardFolders, ALoadedTreeIsCompletedAndRenamedByPlace) {
    Profile first;
    EnsureStandardFolders(first, english);
    const auto addUserFolder = [](auto& parent) -> auto& {
        auto& folder = parent.Append(std::make_unique<std::remove_reference_t<decltype(parent)>>());
        folder.name = u"Mine";
        folder.attributes = parent.attributes.OfUserFolder();
        return folder;
    };
    addUserFolder(addUserFolder(*first.messageRoot.Child(pcPlace)->Child(personalPlace)));
    addUserFolder(*first.contactRoot.Child(contactTrashPlace));
    first.contactRoot.Append(std::make_unique<ContactFolder>()).name = u"Outlook";
    first.messageRoot.Child(pcPlace)->children.pop_back();
    first.messageRoot.Child(pcPlace)->Child(inboxPlace)->attributes.flag3 = 77;
    first.messageRoot.Child(pcPlace)->Child(draftPlace)->attributes = {};

    Profile profile;
    ASSERT_EQ(LoadProfile(test::Saved(first), profile), ProfileLoad::Whole);
    EnsureStandardFolders(profile, other);
    EXPECT_EQ(Describe(*profile.messageRoot.Child(pcPlace)), R"(b 0 0 1 1 0 0 1 1 1
  c 0 0 1 1 0 0 1 77 1
  d 0 0 1 1 0 0 1 1 1
  e 0 0 1 1 0 0 1 1 1
  f 0 0 1 1 0 0 1 1 1
  g 0 0 1 1 1 0 1 1 1
    Mine 0 0 8 8 1 1 1 1 1
      Mine 0 0 8 8 1 1 1 1 1
  h 0 0 2 2 0 0 1 1 1
)");
    EXPECT_EQ(Describe(profile.contactRoot), R"( 0 0 0 0 0 0 0 0 0
  i 0 0 0 0 0 0 1 0 1
  j 0 0 1 1 1 0 1 1 1
  k 0 0 2 2 1 0 1 1 1
    Mine 0 0 8 8 1 1 1 1 1
  Outlook 0 0 0 0 0 0 0 0 0
)");
    const std::string once = test::Saved(profile);
    EnsureStandardFolders(profile, other);
    EXPECT_EQ(test::Saved(profile), once) << "nothing is made twice";
}

}  // namespace
}  // namespace tarnbridge
