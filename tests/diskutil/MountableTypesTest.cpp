#include "diskutil/MountableTypes.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana::diskutil
{

class MountableTypes : public testing::Test
{
protected:
    MountableTypes()
    {
        m_tree.file("proc/filesystems", "nodev\tproc\n\text4\n\tfuseblk\n");
        m_tree.file("lib/modules/6.1/modules.alias", "alias fs-xfs xfs\nalias fs-exfatty other\n");
    }

    bool canMount(const std::string &type) const { return canBeMounted(type, "6.1", m_tree.root()); }

    test::TemporaryTree m_tree;
};

TEST_F(MountableTypes, AreThoseOfTheKernel)
{
    EXPECT_TRUE(canMount("ext4"));
    EXPECT_FALSE(canMount("ext"));
    EXPECT_FALSE(canMount("exfat"));
}

TEST_F(MountableTypes, AreThoseOfItsModules)
{
    EXPECT_TRUE(canMount("xfs"));
    EXPECT_FALSE(canBeMounted("xfs", "6.2", m_tree.root())) << "another kernel's";
}

TEST_F(MountableTypes, AreThoseOfPrograms)
{
    m_tree.file("sbin/mount.exfat", "");
    EXPECT_TRUE(canMount("exfat"));
}

} // namespace orvana::diskutil
