#include "log/LogFile.h"

#include "support/TemporaryTree.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvana
{

TEST(LogFile, ReadsAsMuchAsThereIs)
{
    const test::TemporaryTree tree;
    const auto file = LogFile::open(tree.file("log", "0123456789"));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->size(), 10U);
    EXPECT_EQ(file->read(0, 4).value(), "0123");
    EXPECT_EQ(file->read(8, 100).value(), "89");
    EXPECT_EQ(file->read(50, 4).value(), "");
}

TEST(LogFile, WhatIsNoRegularFileIsNotOpenedAndNotWaitedFor)
{
    const test::TemporaryTree tree;
    ASSERT_EQ(::mkfifo(tree.path("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(LogFile::open(tree.path("pipe")));
    EXPECT_FALSE(LogFile::open(tree.root()));
    EXPECT_FALSE(LogFile::open(tree.path("missing")));
}

} // namespace orvana
