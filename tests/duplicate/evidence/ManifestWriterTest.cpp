// Manifests on disks that fail. What is written where nothing fails is judged from outside, by the scenarios.

#include "duplicate/evidence/ManifestWriter.h"
#include "duplicate/evidence/DiskVerification.h"
#include "platform/FaultyVolumeFiles.h"
#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana
{

namespace
{

class ManifestWriterTest : public testing::Test
{
protected:
    ManifestWriterTest()
    {
        m_tree.file("disk/a", "one");
        m_tree.file("disk/b", "two");
        m_order.kind = ManifestKind::Mhl;
        m_order.scopes = {""};
        m_order.style.format = DigestFormat::Md5;
        m_order.style.started = 1'795'000'000;
        m_order.style.process = "transfer";
        m_order.style.programVersion = "1";
        m_order.style.rootName = "DISK";
        m_order.style.folderForSorting = m_tree.root();
        for (const auto &[path, content] : {std::pair("a", "one"), std::pair("b", "two")}) {
            Digest digest(DigestFormat::Md5);
            digest.add(std::string_view(content));
            EvidenceEntry entry;
            entry.path = path;
            entry.size = 3;
            entry.format = DigestFormat::Md5;
            entry.digest = digest.text();
            entry.states = "+";
            m_log.add(entry);
        }
        m_log.finish();
        m_faults = &m_files.volume(m_tree.path("disk"));
    }

    std::vector<WrittenManifest> write()
    {
        auto volume = m_files.openFolder(m_tree.path("disk"), platform::Reach::Beneath);
        return writeManifests(**volume, m_log, 0, m_order, [this](const EvidenceRemark &remark) {
            m_remarks.push_back(remark.text);
            EXPECT_EQ(remark.kind, EvidenceRemark::Kind::NoManifest);
        });
    }

    DiskVerdict verify()
    {
        VerifyOptions options;
        options.folderForSorting = m_tree.root();
        options.station = std::make_shared<StationCopies>();
        VerifyProgress progress;
        m_findings.clear();
        DiskVerification verification(m_files, m_tree.path("disk"), options, progress,
                                      [this](const Finding &finding) { m_findings.push_back(finding); });
        return verification.verify({});
    }

    test::TemporaryTree m_tree;
    platform::posix::PosixVolumeFiles m_real;
    platform::FaultyVolumeFiles m_files{m_real};
    platform::VolumeFaults *m_faults = nullptr;
    EvidenceLog m_log{m_tree.root()};
    ManifestOrder m_order;
    std::vector<std::string> m_remarks;
    std::vector<Finding> m_findings;
};

} // namespace

TEST_F(ManifestWriterTest, WhatIsWrittenIsVerifiedAsWhole)
{
    const auto written = write();
    ASSERT_EQ(written.size(), 1U);
    EXPECT_EQ(written[0].files, 2U);
    EXPECT_TRUE(m_remarks.empty());
    EXPECT_TRUE(verify().isWhole());
}

TEST_F(ManifestWriterTest, FullDiskGetsNoHalfHistory)
{
    m_faults->capacity = 100;
    EXPECT_TRUE(write().empty());
    ASSERT_EQ(m_remarks.size(), 1U);
    EXPECT_NE(m_remarks[0].find("No space left"), std::string::npos) << m_remarks[0];
    EXPECT_EQ(test::namesIn(m_tree.path("disk")), (std::vector<std::string>{"a", "b"}));
}

TEST_F(ManifestWriterTest, SyncThatFailsLeavesNoHistory)
{
    m_faults->syncError = true;
    EXPECT_TRUE(write().empty());
    ASSERT_EQ(m_remarks.size(), 1U);
    EXPECT_EQ(test::namesIn(m_tree.path("disk")), (std::vector<std::string>{"a", "b"}));
}

TEST_F(ManifestWriterTest, FullDiskLeavesTheOldGenerationsAsTheyWere)
{
    ASSERT_EQ(write().size(), 1U);
    // The history now counts as one that came with the copy.
    EvidenceEntry folder;
    folder.path = "ascmhl";
    folder.isFolder = true;
    folder.states = "+";
    m_log.add(folder);
    m_log.finish();
    m_order.style.started += 60;
    const auto before = test::treeOf(m_tree.path("disk"));
    m_faults->capacity = 100;
    EXPECT_TRUE(write().empty());
    EXPECT_EQ(m_remarks.size(), 1U);
    EXPECT_EQ(test::treeOf(m_tree.path("disk")), before);
    m_faults->capacity = -1;
    EXPECT_TRUE(verify().isWhole());
    EXPECT_EQ(write().size(), 1U) << "and the next run goes on";
    EXPECT_TRUE(verify().isWhole());
}

TEST_F(ManifestWriterTest, ReadOnlyDiskIsTold)
{
    m_faults->readOnly = true;
    EXPECT_TRUE(write().empty());
    ASSERT_EQ(m_remarks.size(), 1U);
    EXPECT_NE(m_remarks[0].find("Read-only"), std::string::npos) << m_remarks[0];
}

TEST_F(ManifestWriterTest, LeftoversOfARunThatWasCutAreReplaced)
{
    m_tree.file("disk/ascmhl.part/0001_DISK_2020-01-01_000000Z.mhl", "half");
    ASSERT_EQ(write().size(), 1U);
    EXPECT_FALSE(m_tree.exists("disk/ascmhl.part"));
    EXPECT_TRUE(verify().isWhole());
}

TEST_F(ManifestWriterTest, ManifestThatTheChainDoesNotKnowYetIsTakenBack)
{
    ASSERT_EQ(write().size(), 1U);
    const auto name = test::namesIn(m_tree.path("disk/ascmhl")).front();
    // A run that was cut between manifest and chain.
    m_tree.file("disk/ascmhl/0002_DISK_2026-11-23_000000Z.mhl", m_tree.read("disk/ascmhl/" + name));
    EXPECT_TRUE(verify().isWhole()) << "the history is not broken by it";
    EvidenceEntry folder;
    folder.path = "ascmhl";
    folder.isFolder = true;
    folder.states = "+";
    m_log.add(folder);
    m_log.finish();
    m_order.style.started += 60;
    ASSERT_EQ(write().size(), 1U);
    EXPECT_FALSE(m_tree.exists("disk/ascmhl/0002_DISK_2026-11-23_000000Z.mhl"));
    EXPECT_EQ(test::namesIn(m_tree.path("disk/ascmhl")).size(), 3U);
    EXPECT_TRUE(verify().isWhole());
}

TEST_F(ManifestWriterTest, FileThatCannotBeReadIsToldAsUnreadable)
{
    ASSERT_EQ(write().size(), 1U);
    m_tree.file("disk/a", std::string(3'000'000, 'x'));
    m_tree.file("disk/ascmhl/readable", "");
    // The manifests are small; the large file uses up what may be read.
    m_faults->readErrorAfter = 100'000;
    const auto verdict = verify();
    EXPECT_FALSE(verdict.isWhole());
    EXPECT_GE(verdict.unreadable, 1);
    ASSERT_FALSE(m_findings.empty());
    EXPECT_EQ(m_findings[0].finding, FileFinding::Unreadable);
    EXPECT_EQ(m_findings[0].path, "a");
    EXPECT_NE(m_findings[0].reason.find("Input/output"), std::string::npos);
}

} // namespace orvana
