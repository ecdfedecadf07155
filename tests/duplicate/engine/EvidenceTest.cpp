// Which copies get into a manifest: only those that count as done when the run has ended.

#include "duplicate/engine/EngineFixture.h"

#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>

namespace orvana
{

namespace
{

class EvidenceTest : public test::EngineTest
{
protected:
    void run(const std::vector<std::string> &items, const std::vector<std::string> &destinations = {"a"})
    {
        setJob(items, destinations);
        useReport();
        CopyTask task;
        for (const auto &item : items)
            task.job.SrcFileArray.push_back(source(item));
        task.job.SrcDiskPath = source();
        for (const auto &name : destinations)
            task.job.DesFileArray.push_back(m_tree.path(name));
        task.job = boundToFolders(m_host, std::move(task.job));
        task.report = m_report;
        task.evidence.emplace();
        task.evidence->manifest = m_kind;
        task.evidence->format = DigestFormat::Md5;
        task.evidence->folderForSorting = m_tree.root();
        task.evidence->started = 1'795'000'000;
        m_engine.start(std::move(task));
        ASSERT_TRUE(m_engine.waitForEnd(std::chrono::minutes(1)));
    }

    // Text of the only manifest in the folder.
    std::string manifestIn(const std::string &folder) const
    {
        for (const auto &name : test::namesIn(m_tree.path(folder + "/ascmhl"))) {
            if (name.ends_with(".mhl"))
                return m_tree.read(folder + "/ascmhl/" + name);
        }
        return {};
    }

    // Writes over the file's content and leaves its time as it is.
    static void changeUnseen(const std::string &path, const std::string &content)
    {
        struct stat before{};
        ASSERT_EQ(::stat(path.c_str(), &before), 0);
        std::ofstream(path, std::ios::in | std::ios::binary) << content;
        const timespec times[] = {before.st_atim, before.st_mtim};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }

    /// Calls `change` once when a message begins so.
    void at(const std::string &message, std::function<void()> change)
    {
        m_recorder.onEach(
            [message, change = std::move(change), done = false](const std::string &line) mutable {
                if (line.starts_with("FileCopyMessage " + message) && !std::exchange(done, true))
                    change();
            });
    }

    Json destination(std::size_t index = 0) { return report()["destinations"][index]; }

    ManifestKind m_kind = ManifestKind::Mhl;
};

} // namespace

TEST_F(EvidenceTest, WhatIsReadBackMustHaveTheDigestOfWhatWasCopied)
{
    m_tree.file("source/card/file", "content");
    m_engine.setBVerifyFiles(true);
    // Source and copy are equal to each other afterwards, but not to what was copied.
    at("Verifying File ...", [this] {
        changeUnseen(source("card/file"), "CONTENT");
        changeUnseen(copy("a", "card/file"), "CONTENT");
    });
    run({"card"});
    EXPECT_EQ(destination()["verified"], 0);
    EXPECT_EQ(destination()["unverified"], 1);
    EXPECT_EQ(report()["problems"][0]["reason"],
              "What was read back has another digest than what was copied");
    EXPECT_EQ(manifestIn("a/card").find("<path size"), std::string::npos) << manifestIn("a/card");
}

TEST_F(EvidenceTest, CopyThatIsFoundBadAtTheEndOfTheRunIsNotListed)
{
    m_tree.file("source/card/1", "content");
    m_tree.file("source/card/2", "other");
    m_engine.setBVerifyFiles(true);
    // The folder is read in any order. The file that was copied first is the one that is changed.
    std::string first;
    m_recorder.onEach([&, count = 0](const std::string &line) mutable {
        if (line.starts_with("FileCopyMessage Duplicating ") && ++count == 2) {
            first = line.ends_with("1") ? "2" : "1";
            std::ofstream(copy("a", "card/" + first), std::ios::in | std::ios::binary) << "XXXXX";
        }
    });
    run({"card"});
    EXPECT_EQ(destination()["mismatched"], 1);
    const auto manifest = manifestIn("a/card");
    EXPECT_EQ(manifest.find(">" + first + "</path>"), std::string::npos) << manifest;
    EXPECT_NE(manifest.find(first == "1" ? ">2</path>" : ">1</path>"), std::string::npos) << manifest;
    EXPECT_NE(manifest.find("<content></content>"), std::string::npos) << "so the root has no digest";
}

TEST_F(EvidenceTest, DestinationWhoseDataIsNotOnItsDiskGetsNoManifest)
{
    m_tree.file("source/card/file", "content");
    faultsOf("a").syncError = true;
    run({"card"}, {"a", "b"});
    EXPECT_FALSE(m_tree.exists("a/card/ascmhl"));
    EXPECT_FALSE(m_tree.exists("a/card/ascmhl.part"));
    EXPECT_NE(manifestIn("b/card"), "");
}

TEST_F(EvidenceTest, FullDestinationIsToldAndTheOthersGetTheirManifests)
{
    m_tree.file("source/card/file", "content");
    faultsOf("a").capacity = 100;
    run({"card"}, {"a", "b"});
    EXPECT_EQ(destination(0)["copied"], 1);
    EXPECT_FALSE(m_tree.exists("a/card/ascmhl"));
    EXPECT_EQ(report()["problems"][0]["kind"], "noManifest");
    EXPECT_EQ(destination(0)["manifests"].size(), 0U);
    EXPECT_EQ(destination(1)["manifests"].size(), 1U);
}

TEST_F(EvidenceTest, LargeFilesAndSmallOnesHaveTheirOwnDigests)
{
    const auto large = test::patternOf(3 * 1'048'576 + 5, 1);
    m_tree.file("source/card/large", large);
    m_tree.file("source/card/exact", large.substr(0, 1'048'576));
    m_tree.file("source/card/small", "content");
    m_tree.file("source/card/empty", "");
    m_engine.setBVerifyFiles(true);
    run({"card"}, {"a", "b", "c"});
    EXPECT_EQ(destination()["verified"], 4);
    for (const auto &content : {large, large.substr(0, 1'048'576), std::string("content"), std::string()}) {
        Digest digest(DigestFormat::Md5);
        digest.add(content);
        EXPECT_NE(manifestIn("c/card").find(digest.text()), std::string::npos) << content.size();
    }
}

TEST_F(EvidenceTest, FolderThatCannotBeReadToItsEndHasNoDigest)
{
    m_tree.file("source/card/a", "content");
    m_tree.file("source/card/b", "content");
    m_host.faults().volume(source("card")).listErrorAfter = 1;
    run({"card"});
    const auto manifest = manifestIn("a/card");
    EXPECT_NE(manifest.find("<content></content>"), std::string::npos) << manifest;
    EXPECT_GE(destination()["failed"], 1);
}

TEST_F(EvidenceTest, ChecksumFileIsNeverWrittenOverAnother)
{
    m_kind = ManifestKind::Sums;
    m_tree.file("source/card/file", "content");
    m_tree.file("a/card/card_2026-11-18_110640Z.md5", "mine");
    run({"card"});
    EXPECT_EQ(m_tree.read("a/card/card_2026-11-18_110640Z.md5"), "mine");
    EXPECT_EQ(report()["problems"][0]["kind"], "noManifest");
}

} // namespace orvana
