#include "diskutil/RealDisks.h"

#include "duplicate/engine/FileCopy.h"
#include "duplicate/report/RunReport.h"
#include "foundation/NotificationCenter.h"
#include "support/TestHost.h"

#include <nlohmann/json.hpp>
#include <sys/stat.h>

namespace orvana::test
{

void RealDisks::SetUp()
{
    if (!hasPrivateSystem())
        GTEST_SKIP() << MissingSystem;
    if (!isRightSystem())
        GTEST_SKIP() << "is run by itself, on another system";
    m_tree.folder("bays");
    ::chmod(m_tree.root().c_str(), 0755);
}

std::unique_ptr<ImageDisk> RealDisks::addBlankDisk(int megabytes, const std::string &name)
{
    return std::make_unique<ImageDisk>(m_tree.path("bays"), name, megabytes);
}

std::unique_ptr<ImageDisk> RealDisks::addDisk(const std::string &name)
{
    auto disk = addBlankDisk(64, name);
    disk->makeVolume("ext4", "OLD");
    return disk;
}

Said RealDisks::erase(const ImageDisk &disk, const std::string &name, const std::string &format,
                      const std::string &as)
{
    return diskUtility({"eraseDisk", format, name, disk.node()}, disk.expectations(), as);
}

Said RealDisks::eject(const ImageDisk &disk, const std::string &as)
{
    return diskUtility({"eject", disk.node()}, disk.expectations(), as);
}

Said RealDisks::diskUtility(std::vector<std::string> words, const std::vector<std::string> &expectations,
                            const std::string &as)
{
    words.insert(words.end(), expectations.begin(), expectations.end());
    return runDiskUtility(words, m_tree.path("bays"), as);
}

void RealDisks::expectRefusal(const ImageDisk &disk, const std::string &reason, const std::string &name,
                              const std::string &format)
{
    const auto before = disk.digest();
    const auto said = erase(disk, name, format);
    EXPECT_EQ(said.status, 3) << said.text;
    EXPECT_NE(said.text.find(reason), std::string::npos) << said.text;
    EXPECT_EQ(disk.digest(), before);
}

void RealDisks::expectCopyGoesTo(const ImageDisk &disk)
{
    const auto content = patternOf(3'000'000);
    m_tree.file("source/file", content);
    m_tree.file("source/folder/small", "small");
    const auto point = disk.mountPoint();
    ASSERT_FALSE(point.empty());

    TestHost host(m_tree.path("home"));
    NotificationCenter center;
    FileCopy engine(host, center);
    engine.SetBackupDiskValue({m_tree.path("source")}, m_tree.path("source"), {point});
    engine.setTotalFiles(2);
    engine.setBVerifyFiles(true);
    const auto report = std::make_shared<RunReport>(m_tree.folder("reports"), "run", m_clock);
    engine.setReport(report);
    engine.StartBackup();
    EXPECT_EQ(Json::parse(contentOf(report->path()))["destinations"][0]["verified"], 2);
    EXPECT_EQ(contentOf(point + "/file"), content);
    EXPECT_EQ(contentOf(point + "/folder/small"), "small");
}

std::string sparingWord(const ImageDisk &disk)
{
    std::string arrival;
    std::string serial;
    std::string size;
    for (const auto &word : disk.expectations()) {
        const auto value = word.substr(word.find('=') + 1);
        if (word.starts_with("--expect-sequence"))
            arrival = value;
        if (word.starts_with("--expect-serial"))
            serial = value;
        if (word.starts_with("--expect-size"))
            size = value;
    }
    return "--spare=device=" + disk.node() + ",arrival=" + arrival + ",size=" + size + ",serial=" + serial;
}

} // namespace orvana::test
