#include "duplicate/engine/ReadAhead.h"

#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvana
{

class ReadAheadTest : public testing::Test
{
protected:
    std::string contentOf(const std::optional<ReadAhead::Source> &source) const
    {
        return source ? std::string(reinterpret_cast<const char *>(source->content.data()),
                                    source->content.size())
                      : "nothing";
    }

    /// Reads the entry ahead and returns what was kept.
    std::optional<ReadAhead::Source> readAhead(const std::string &name)
    {
        m_ahead.plan(m_tree.path(name));
        m_ahead.read();
        return m_ahead.take(m_tree.path(name));
    }

    test::TemporaryTree m_tree;
    platform::posix::PosixVolumeFiles m_files;
    ReadAhead m_ahead{m_files.workingFolder()};
};

TEST_F(ReadAheadTest, SmallFileIsKeptWithItsAttributes)
{
    m_tree.file("a", "content");
    m_ahead.plan(m_tree.path("a"));
    EXPECT_TRUE(m_ahead.isPlanned());
    EXPECT_FALSE(m_ahead.entryAt(m_tree.path("a"))) << "nothing is read before its time";
    m_ahead.read();
    EXPECT_FALSE(m_ahead.isPlanned());
    const auto entry = m_ahead.entryAt(m_tree.path("a"));
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->size, 7U);
    const auto source = m_ahead.take(m_tree.path("a"));
    EXPECT_EQ(contentOf(source), "content");
    EXPECT_EQ(source->opened.inode, entry->inode);
    EXPECT_FALSE(m_ahead.take(m_tree.path("a"))) << "it is taken once";
}

TEST_F(ReadAheadTest, EmptyFileIsAFile)
{
    m_tree.file("a", "");
    const auto source = readAhead("a");
    ASSERT_TRUE(source);
    EXPECT_TRUE(source->content.empty());
}

TEST_F(ReadAheadTest, OnlySmallFilesOfOneNameAreRead)
{
    m_tree.folder("folder");
    m_tree.link("link", "small");
    m_tree.file("large", std::string(BlockSize, 'x'));
    m_tree.file("one", "of two names");
    ASSERT_EQ(::link(m_tree.path("one").c_str(), m_tree.path("two").c_str()), 0);
    ASSERT_EQ(::mkfifo(m_tree.path("pipe").c_str(), 0600), 0);
    for (const char *name : {"folder", "link", "large", "one", "pipe", "missing"})
        EXPECT_FALSE(readAhead(name)) << name;
}

TEST_F(ReadAheadTest, FileThatMayChangeUnseenWaitsForItsTurn)
{
    m_tree.file("a", "content");
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const timespec times[2] = {{now.tv_sec, 0}, {now.tv_sec, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, m_tree.path("a").c_str(), times, 0), 0);
    EXPECT_FALSE(readAhead("a"));
}

TEST_F(ReadAheadTest, AnotherFileIsNotTakenForThePlannedOne)
{
    m_tree.file("a", "content of a");
    m_tree.file("b", "content of b");
    m_ahead.plan(m_tree.path("a"));
    m_ahead.read();
    EXPECT_FALSE(m_ahead.entryAt(m_tree.path("b")));
    EXPECT_FALSE(m_ahead.take(m_tree.path("b")));
    EXPECT_FALSE(m_ahead.take(m_tree.path("a"))) << "it was forgotten";
}

TEST_F(ReadAheadTest, ContentInHandStaysWhileTheNextIsRead)
{
    m_tree.file("a", "content of a");
    m_tree.file("b", "content of b");
    const auto a = readAhead("a");
    const auto b = readAhead("b");
    EXPECT_EQ(contentOf(a), "content of a");
    EXPECT_EQ(contentOf(b), "content of b");
}

} // namespace orvana
