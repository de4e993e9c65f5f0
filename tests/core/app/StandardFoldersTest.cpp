#include <gtest/gtest.h>

#include "core/app/ProfileFormat.h"
#include "core/app/SampleProfile.h"
#include "core/app/StandardFolders.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

const FolderNames renamed = {u"a", u"b", u"c", u"d", u"e", u"f", u"g", u"h", u"i", u"j", u"k"};

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

TEST(StandardFolders, ALoadedTreeIsCompletedAndRenamedByPlace) {
    Profile first;
    EnsureStandardFolders(first, {});
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
    EnsureStandardFolders(profile, renamed);
    EXPECT_EQ(Describe(profile.messageRoot), R"( 0 0 0 0 0 0 0 0 0
  a 0 0 0 0 0 0 1 0 1
    c 0 0 0 0 0 0 1 0 1
    d 0 0 0 0 0 0 1 0 1
    e 0 0 0 0 0 0 1 0 1
    f 0 0 0 0 0 0 1 0 1
  b 0 0 1 1 0 0 1 1 1
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
    EnsureStandardFolders(profile, renamed);
    EXPECT_EQ(test::Saved(profile), once) << "nothing is made twice";
}

}  // namespace
}  // namespace tarnbridge
