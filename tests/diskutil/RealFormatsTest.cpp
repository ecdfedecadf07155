// The file systems that real disks are erased to: their names, their owners, and what can be done with them.

#include "diskutil/RealDisks.h"

#include <cstdlib>

namespace orvana::test
{

namespace
{

// The kernel mounts exFAT where it can, and a program elsewhere.
class ExfatMounts
{
public:
    ExfatMounts()
    {
        if (runShell("grep -qw exfat /proc/filesystems || modprobe -q exfat").status != 0)
            m_helper = std::make_unique<MountHelper>("exfat", "/sbin/mount.exfat-fuse");
    }

private:
    std::unique_ptr<MountHelper> m_helper;
};

} // namespace

TEST_F(RealDisks, ExfatIsMadeMountedWrittenVerifiedAndEjected)
{
    const ExfatMounts mounts;
    const auto disk = addDisk();
    const auto erased = erase(*disk, "COPY 1 - 11", "exfat");
    ASSERT_EQ(erased.status, 0) << erased.text;
    const auto point = disk->mountPoint();
    EXPECT_NE(erased.text.find("exfat at " + point), std::string::npos) << erased.text;
    EXPECT_EQ(disk->label(), "COPY 1 - 11");
    EXPECT_EQ(treeOf(point), std::vector<std::string>());
    expectCopyGoesTo(*disk);
    const auto ejected = eject(*disk);
    EXPECT_EQ(ejected.status, 0) << ejected.text;
    EXPECT_EQ(disk->mountPoint(), "");

    disk->mount(m_tree.folder("here"));
    EXPECT_EQ(contentOf(m_tree.path("here/folder/small")), "small") << "it is on the disk";
}

TEST_F(RealDisks, JournaledFormatIsTheOneOfTheSetting)
{
    const auto disk = addBlankDisk(400);
    ::setenv("ORVANA_FILE_SYSTEM", "xfs", 1);
    const auto said = erase(*disk, "COPY", "JHFS+");
    ::unsetenv("ORVANA_FILE_SYSTEM");
    EXPECT_EQ(said.status, 0) << said.text;
    EXPECT_NE(said.text.find("xfs at " + disk->mountPoint()), std::string::npos) << said.text;
    EXPECT_EQ(disk->type(), "xfs");
    EXPECT_EQ(disk->label(), "COPY");
}

TEST_F(RealDisks, NamesOfJustTheLimitAreCarriedAsTheyAre)
{
    const ExfatMounts mounts;
    const auto disk = addBlankDisk(400);
    const std::pair<const char *, const char *> names[] = {
        {"ext4", "sixteen bytes ä"}, {"xfs", "twelve-bytes"}, {"exfat", "äöüÄÖÜßéñ😀"}};
    for (const auto &[format, name] : names) {
        const auto said = erase(*disk, name, format);
        EXPECT_EQ(said.status, 0) << said.text;
        EXPECT_EQ(disk->type(), format);
        EXPECT_EQ(disk->label(), name);
    }
}

TEST_F(RealDisks, NameOverTheLimitIsRefused)
{
    const auto disk = addDisk();
    expectRefusal(*disk, "longer than 16 bytes, which is the limit of ext4", "seventeen letters");
    expectRefusal(*disk, "longer than 11 characters, which is the limit of exFAT", "äöüÄÖÜßéñx😀", "exfat");
}

TEST_F(RealDisks, VolumeThatIsMadeAndCannotBeMountedIsTold)
{
    const MountHelper broken("exfat", "/bin/false");
    const auto disk = addDisk();
    const auto said = erase(*disk, "COPY", "exfat");
    EXPECT_EQ(said.status, 1) << said.text;
    EXPECT_NE(said.text.find(disk->partition() + " is erased, but cannot be mounted: "), std::string::npos)
        << said.text;
    EXPECT_EQ(disk->type(), "exfat");
    EXPECT_EQ(disk->label(), "COPY");
    EXPECT_EQ(disk->mountPoint(), "");
}

TEST_F(RealDisks, VolumeThatCannotBeMadeIsToldInOneLine)
{
    const auto disk = addBlankDisk(8);
    const auto said = erase(*disk, "COPY", "xfs");
    EXPECT_EQ(said.status, 1) << said.text;
    EXPECT_NE(said.text.find(disk->node() + " was emptied, but has no volume to use: "), std::string::npos)
        << said.text;
    EXPECT_EQ(said.text.find("\\x0A"), std::string::npos) << said.text;
}

TEST_F(PlayedAuthority, VolumeBelongsToWhoErasedInEveryFormat)
{
    const ExfatMounts mounts;
    const auto disk = addBlankDisk(400);
    setAuthority(Authority::Allows);
    for (const char *format : {"xfs", "exfat"}) {
        const auto said = erase(*disk, "COPY", format, "nobody");
        EXPECT_EQ(said.status, 0) << said.text;
        EXPECT_EQ(disk->type(), format);
        EXPECT_EQ(disk->mountPoint(), "/media/nobody/COPY");
        EXPECT_EQ(disk->owner(), "nobody");
    }
}

} // namespace orvana::test
