#include "duplicate/job/JobSource.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvana
{

class JobSourceTest : public testing::Test
{
protected:
    // Adds a disk with one mounted volume, which is offered as a source under this title.
    void add(const std::string &title, const std::string &root, const std::string &id)
    {
        auto volume = std::make_shared<ORVBsdInfo>();
        volume->setMountPoint(std::make_shared<const std::string>(root));
        volume->setVolumeId(id);
        auto disk = std::make_shared<ORVHddInfo>();
        disk->bsdPathArray().push_back(volume);
        m_devices.otherDiskArray.push_back(disk);
        m_plan.candidates.push_back({title, root, SourceIcon::ExternalDisk, {}});
    }

    std::string titleOr(const std::string &id) const
    {
        Job job;
        job.volumeId = id;
        const auto title = titleOfSource(job, m_devices, m_plan);
        return title ? *title : title.error();
    }

    ScannedDevices m_devices;
    SourcePlan m_plan;
};

TEST_F(JobSourceTest, IsFoundByItsId)
{
    add("Master", "/media/a/Master", "1");
    add("Reel", "/media/a/Reel", "2");
    EXPECT_EQ(titleOr("2"), "Reel");
    EXPECT_EQ(titleOr("3"), "3: the source of the job is not there");
}

TEST_F(JobSourceTest, IsRefusedWhenAnotherSourceHasItsName)
{
    add("Master", "/media/a/Master", "1");
    add("Master", "/media/b/Master", "2");
    EXPECT_EQ(titleOr("2"), "Master: another source has the same name; rename one of them");
}

TEST_F(JobSourceTest, IsRefusedWhenTwoVolumesHaveItsId)
{
    add("Master", "/media/a/Master", "1");
    add("Clone", "/media/a/Clone", "1");
    EXPECT_EQ(titleOr("1"), "1: two volumes have the id of the job's source");
}

TEST_F(JobSourceTest, PathsAreNamedBelowTheRootAndBack)
{
    EXPECT_EQ(selectionOf({"/m/a", "/m/b/c"}, "/m"), (std::vector<std::string>{"a", "b/c"}));
    EXPECT_TRUE(selectionOf({"/m"}, "/m").empty());
    EXPECT_EQ(selectionOf({"/a"}, "/"), std::vector<std::string>{"a"});
    Job job;
    EXPECT_EQ(selectionBelow(job, "/m"), std::vector<std::string>{"/m"});
    job.selection = {"a"};
    EXPECT_EQ(selectionBelow(job, "/m"), std::vector<std::string>{"/m/a"});
    EXPECT_EQ(selectionBelow(job, "/"), std::vector<std::string>{"/a"});
}

} // namespace orvana
