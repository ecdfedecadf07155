#include "platform/posix/UserDatabase.h"

#include <gtest/gtest.h>

namespace orvana::platform::posix
{

TEST(UserDatabase, KnowsTheSameUserByNumberAndByName)
{
    const auto root = userById(0);
    ASSERT_TRUE(root);
    EXPECT_EQ(root->name, "root");
    EXPECT_EQ(userByName("root")->home, root->home);
    EXPECT_FALSE(userByName("no such user here"));
}

} // namespace orvana::platform::posix
