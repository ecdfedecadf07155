#include "platform/posix/PrivateFolder.h"

#include "platform/hosts/HostFactory.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvana::platform
{

class PrivateFolder : public testing::Test
{
protected:
    std::string refusal(const std::string &name) const
    {
        const auto made = makePrivateFolder(m_tree.path(name));
        return made ? "none" : made.error().substr(made.error().rfind(": ") + 2);
    }

    test::TemporaryTree m_tree;
};

TEST_F(PrivateFolder, IsMadeForThisUserAlone)
{
    ASSERT_TRUE(makePrivateFolder(m_tree.path("a/b")));
    struct stat status{};
    ASSERT_EQ(::stat(m_tree.path("a/b").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    EXPECT_EQ(refusal("a/b"), "none") << "and is taken again";
}

TEST_F(PrivateFolder, LinkIsNotFollowed)
{
    m_tree.link("link", m_tree.folder("target"));
    EXPECT_EQ(refusal("link"), "is a link, and is not followed");
}

TEST_F(PrivateFolder, FolderThatOthersMayWriteToIsRefused)
{
    ASSERT_EQ(::chmod(m_tree.folder("open").c_str(), 0777), 0);
    EXPECT_EQ(refusal("open"), "can be written to by other users");
}

TEST_F(PrivateFolder, FileIsNoFolder)
{
    m_tree.file("file");
    EXPECT_EQ(refusal("file"), "is not a folder");
}

TEST_F(PrivateFolder, FolderOfAnotherUserIsRefused)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a folder away";
    ASSERT_EQ(::chown(m_tree.folder("strange").c_str(), 65534, 65534), 0);
    EXPECT_EQ(refusal("strange"), "belongs to another user");
}

class HostileState : public PrivateFolder
{
protected:
    static constexpr const char *Machine =
        R"({"login":"anna","usbDisks":[{"size":1000,"volumes":[{"name":"STICK","capacity":900,"mounted":false}]}]})";
};

TEST_F(HostileState, DemoInAStrangersFolderIsRefused)
{
    ASSERT_EQ(::chmod(m_tree.folder("demo").c_str(), 0777), 0);
    EXPECT_FALSE(prepareDemo(m_tree.path("demo")));
    EXPECT_FALSE(m_tree.exists("demo/machine.json"));
}

TEST_F(HostileState, NameThatLeadsOutIsNotBelieved)
{
    const auto file = m_tree.file("machine.json", Machine);
    m_tree.file("precious/letter", "mine");
    for (const char *name : {"../../precious", "..", ".", "", "a/../../../precious"}) {
        ASSERT_TRUE(makePrivateFolder(file + ".volumes"));
        ASSERT_TRUE(makePrivateFolder(file + ".volumes/Mounted"));
        m_tree.file("machine.json.volumes/Mounted/-usbDisks-0-volumes-0", std::string(name) + "\n");
        EXPECT_TRUE(makeSimulatorHost(file, nullptr)) << name;
        EXPECT_EQ(m_tree.read("precious/letter"), "mine") << name;
    }
}

TEST_F(HostileState, LinkAmongTheVolumesIsNotTakenForOne)
{
    const auto file = m_tree.file("machine.json", Machine);
    m_tree.file("precious/letter", "mine");
    ASSERT_TRUE(makeSimulatorHost(file, nullptr));
    m_tree.link("machine.json.volumes/Volumes/STICK", m_tree.path("precious"));
    m_tree.file("machine.json.volumes/Mounted/-usbDisks-0-volumes-0", "STICK\n");
    ASSERT_TRUE(makeSimulatorHost(file, nullptr));
    EXPECT_EQ(m_tree.read("precious/letter"), "mine");
    EXPECT_TRUE(m_tree.exists("machine.json.volumes/Volumes/STICK/letter")) << "the link stays what it is";
}

TEST_F(HostileState, VolumesThatAreALinkAreRefused)
{
    const auto file = m_tree.file("machine.json", Machine);
    m_tree.link("machine.json.volumes", m_tree.folder("elsewhere"));
    EXPECT_FALSE(makeSimulatorHost(file, nullptr));
    EXPECT_TRUE(test::treeOf(m_tree.path("elsewhere")).empty());
}

} // namespace orvana::platform
