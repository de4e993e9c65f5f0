#include <gtest/gtest.h>

#include "messaging/MessageFolder.h"

namespace tarnbridge {
namespace {

TEST(MessageFolder, AMillionLevelsAreDestroyed) {
    auto root = std::make_unique<MessageFolder>();
    MessageFolder* deepest = root.get();
    for (int i = 0; i < 1'000'000; ++i)
        deepest = &deepest->Append(std::make_unique<MessageFolder>());
    root->Append(std::make_unique<MessageFolder>());
    root->Child(0)->RemoveChildren();
    EXPECT_EQ(root->Child(0)->children.size(), 0u);
    EXPECT_EQ(root->Child(1)->parent, root.get());
    EXPECT_EQ(root->Child(2), nullptr);
}

TEST(MessageFolder, AFolderOfTheUsersHasTheAttributesOfItsParentButFour) {
    const FolderAttributes parent = {4, 1, pcFolder, 3, 0, 0, 5, 6, 7};
    EXPECT_EQ(parent.OfUserFolder(), (FolderAttributes{4, 1, madeByUser, 8, 1, 1, 5, 6, 7}));
}

}  // namespace
}  // namespace tarnbridge
