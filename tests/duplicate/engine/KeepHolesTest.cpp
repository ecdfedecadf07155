// Runs that keep the holes of files.

#include "duplicate/engine/KeepFixture.h"

namespace orvana
{

class KeepHolesTest : public KeepTest
{
protected:
    /// A file of `blocks` blocks, of which only the one at `data` holds something.
    void sparseFile(const std::string &name, std::size_t blocks, std::size_t data) const
    {
        m_tree.file("source/" + name, "");
        const int file = ::open(source(name).c_str(), O_WRONLY | O_CLOEXEC);
        const std::string content(BlockSize, 'd');
        EXPECT_EQ(::pwrite(file, content.data(), content.size(), static_cast<off_t>(data * BlockSize)),
                  static_cast<ssize_t>(BlockSize));
        EXPECT_EQ(::ftruncate(file, static_cast<off_t>(blocks * BlockSize)), 0);
        ::close(file);
    }
};

TEST_F(KeepHolesTest, HolesStayHoles)
{
    sparseFile("sparse", 16, 5);
    keepAll({""}, {"a", "b"});
    for (const auto *name : {"a", "b"}) {
        EXPECT_EQ(m_tree.read(std::string(name) + "/sparse"), m_tree.read("source/sparse"));
        EXPECT_LE(statusOf(copy(name, "sparse")).st_blocks * 512, 3 * static_cast<off_t>(BlockSize));
    }
    EXPECT_EQ(destination()["blocksWritten"], 1);
    EXPECT_EQ(destination()["bytes"], BlockSize);
    EXPECT_EQ(destination()["copied"], 1);
}

TEST_F(KeepHolesTest, HoleIsEmptyAlsoWhereTheOldCopyHeldSomething)
{
    sparseFile("sparse", 4, 1);
    m_tree.file("a/sparse", std::string(4 * BlockSize, 'o'));
    keepAll();
    EXPECT_EQ(m_tree.read("a/sparse"), m_tree.read("source/sparse"));
}

TEST_F(KeepHolesTest, FileOfNothingButAHoleHasItsLength)
{
    m_tree.file("source/hole", "");
    ASSERT_EQ(::truncate(source("hole").c_str(), 5000), 0);
    m_engine.setBVerifyFiles(true);
    keepAll();
    EXPECT_EQ(statusOf(copy("a", "hole")).st_size, 5000);
    EXPECT_EQ(destination()["verified"], 1);
}

} // namespace orvana
