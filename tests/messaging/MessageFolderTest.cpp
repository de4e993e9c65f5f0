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

}  // namespace
}  // namespace tarnbridge
