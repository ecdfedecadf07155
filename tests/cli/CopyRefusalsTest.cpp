// Copies that would land on their own source, and two runs at once.

#include "cli/MachineFixture.h"
#include "duplicate/engine/RunLocks.h"
#include "platform/posix/PosixVolumeFiles.h"
#include "support/TestHost.h"

#include <algorithm>
#include <unistd.h>

namespace orvana::cli
{

/// Layouts in which copies would land on the source.
class Folding : public SimulatedMachineTest
{
};

TEST_F(Folding, SourceInsideItsDestinationThatWouldLandOnItselfIsRefused)
{
    m_tree.file("d/a/a/f", "outer");
    m_tree.file("d/a/a/a/f", "inner");
    EXPECT_EQ(program({"copy", m_tree.path("d/a/a"), "--to", m_tree.path("d")}), WrongUsage);
    EXPECT_EQ(m_tree.read("d/a/a/f"), "outer");
    EXPECT_EQ(m_tree.read("d/a/a/a/f"), "inner");
}

TEST_F(Folding, SourceInsideItsDestinationWithAnotherNameIsCopied)
{
    m_tree.file("d/a/b/f", "film");
    EXPECT_EQ(program({"copy", m_tree.path("d/a/b"), "--to", m_tree.path("d")}), AllDone);
    EXPECT_EQ(m_tree.read("d/b/f"), "film");
}

TEST_F(Folding, CopyThatIsAnotherTickedFileIsRefused)
{
    m_tree.file("s/f", "film");
    m_tree.file("s/g", "other film");
    m_tree.folder("d");
    ASSERT_EQ(::link(m_tree.path("s/g").c_str(), m_tree.path("d/f").c_str()), 0);
    EXPECT_EQ(program({"copy", m_tree.path("s/f"), m_tree.path("s/g"), "--to", m_tree.path("d")}),
              WrongUsage);
    EXPECT_EQ(m_tree.read("s/g"), "other film");
}

TEST_F(Folding, CopyThatSharesTheSourcesInodeIsLeftAlone)
{
    m_tree.file("s/f", "film");
    m_tree.file("s/g", "other film");
    m_tree.folder("d/s");
    ASSERT_EQ(::link(m_tree.path("s/g").c_str(), m_tree.path("d/s/f").c_str()), 0);
    EXPECT_EQ(program({"copy", m_tree.path("s"), "--to", m_tree.path("d")}), SomethingFailed);
    EXPECT_EQ(m_tree.read("s/g"), "other film");
    EXPECT_EQ(m_tree.read("d/s/g"), "other film");
    EXPECT_NE(m_out.find("1 copied, 1 failed"), std::string::npos) << m_out;
}

TEST_F(Folding, LinkOnTheDestinationThatLeadsIntoTheSourceIsLeftAlone)
{
    m_tree.file("d/x/s/f", "film");
    m_tree.file("d/x/s/g", "other film");
    m_tree.folder("d/s");
    m_tree.link("d/s/f", "../x/s/g");
    EXPECT_EQ(program({"copy", m_tree.path("d/x/s"), "--to", m_tree.path("d")}), SomethingFailed);
    EXPECT_EQ(m_tree.read("d/x/s/g"), "other film");
}

TEST_F(Folding, OrdinaryExistingCopyOnTheSameDeviceIsWrittenOver)
{
    m_tree.file("s/f", "film");
    m_tree.file("d/f", "FILM");
    EXPECT_EQ(program({"copy", m_tree.path("s/f"), "--to", m_tree.path("d")}), AllDone) << m_out;
    EXPECT_EQ(m_tree.read("d/f"), "film");
}

/// Two runs at once.
class TwoRuns : public SimulatedMachineTest
{
protected:
    int copyTo(const std::string &destination)
    {
        return program({"copy", m_tree.file("s/file"), "--to", m_tree.path(destination)});
    }

    std::unique_ptr<platform::FolderLock> hold(const std::string &folder)
    {
        return m_files.lockFolder(m_tree.folder(folder), platform::Sharing::Exclusive).value();
    }

    platform::posix::PosixVolumeFiles m_files;
    test::TestHost m_host{m_tree.path("home")};
};

TEST_F(TwoRuns, SecondOneOnADestinationIsRefusedByName)
{
    const auto other = hold("d");
    EXPECT_EQ(copyTo("d"), Refused);
    EXPECT_FALSE(m_tree.exists("d/file"));
}

TEST_F(TwoRuns, OneInsideAnotherIsRefused)
{
    {
        const RunLocks other(m_host, {}, {m_tree.folder("d/inner")});
        EXPECT_EQ(copyTo("d"), Refused);
    }
    const RunLocks other(m_host, {}, {m_tree.folder("d")});
    EXPECT_EQ(copyTo("d/inner"), Refused);
}

TEST_F(TwoRuns, OneBesideAnotherIsNot)
{
    const RunLocks other(m_host, {}, {m_tree.folder("d/one")});
    m_tree.folder("d/two");
    EXPECT_EQ(copyTo("d/two"), AllDone);
}

TEST_F(TwoRuns, DestinationOfOneIsNotReadByAnother)
{
    m_tree.folder("d");
    const RunLocks other(m_host, {}, {m_tree.folder("s")});
    EXPECT_EQ(copyTo("d"), Refused);
}

TEST_F(TwoRuns, OneSourceMayBeReadTwice)
{
    m_tree.folder("d");
    const RunLocks other(m_host, m_tree.folder("s"), {});
    EXPECT_EQ(copyTo("d"), AllDone);
}

TEST_F(TwoRuns, VolumeThatAnotherRunWritesToIsLeftOutByName)
{
    m_options.yes = true;
    const auto status = [&] {
        ASSERT_EQ(program({"devices"}), 0); // makes the machine's folders
        const RunLocks other(m_host, {}, {m_tree.path("machine.json.volumes/Volumes/COPY1")});
        EXPECT_EQ(duplicate(), SomethingFailed);
    };
    status();
    EXPECT_NE(m_err.find("Slot-B (COPY1): another run is at work on its volume"), std::string::npos) << m_err;
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
    EXPECT_EQ(filesOn("COPY2").size(), 5U);
}

} // namespace orvana::cli
