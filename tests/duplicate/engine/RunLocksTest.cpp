#include "duplicate/engine/RunLocks.h"

#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

namespace orvana
{

class RunLocksTest : public testing::Test
{
protected:
    test::TemporaryTree m_tree;
    test::TestHost m_host{m_tree.root()};
    std::string m_source = m_tree.folder("source");
    std::string m_copy = m_tree.folder("copy");
};

TEST_F(RunLocksTest, DestinationBelongsToOneRun)
{
    const RunLocks first(m_host, m_source, {m_copy});
    EXPECT_TRUE(first.hasAll());
    const RunLocks second(m_host, m_source, {m_copy, m_tree.folder("other")});
    EXPECT_TRUE(second.hasSource()) << "a source may be read by many";
    EXPECT_FALSE(second.hasDestination(0));
    EXPECT_TRUE(second.hasDestination(1));
    EXPECT_FALSE(second.hasAll());
}

TEST_F(RunLocksTest, FoldersAboveAndBelowADestinationAreTaken)
{
    const RunLocks first(m_host, m_source, {m_tree.folder("copy/inner")});
    EXPECT_FALSE(RunLocks(m_host, m_source, {m_copy}).hasDestination(0));
    EXPECT_FALSE(RunLocks(m_host, m_source, {m_tree.folder("copy/inner/most")}).hasDestination(0));
    EXPECT_TRUE(RunLocks(m_host, m_source, {m_tree.folder("copy/beside")}).hasDestination(0));
}

TEST_F(RunLocksTest, SourceIsNotWrittenToAndADestinationNotReadFrom)
{
    const RunLocks first(m_host, m_source, {m_copy});
    EXPECT_FALSE(RunLocks(m_host, m_tree.folder("third"), {m_source}).hasDestination(0));
    EXPECT_FALSE(RunLocks(m_host, m_copy, {m_tree.folder("fourth")}).hasSource());
}

TEST_F(RunLocksTest, LocksEndWithTheirOwner)
{
    {
        const RunLocks first(m_host, m_source, {m_copy});
    }
    EXPECT_TRUE(RunLocks(m_host, m_source, {m_copy}).hasAll());
}

} // namespace orvana
