// What the generations of a history know, and the log of digests behind a manifest.

#include "duplicate/evidence/History.h"
#include "duplicate/evidence/EvidenceLog.h"
#include "duplicate/evidence/FolderDigests.h"
#include "duplicate/evidence/SortKey.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orvana
{

namespace
{

constexpr const char *DigestA = "ab56b4d92b40713acc5af89985d4b786";
constexpr const char *DigestB = "d41d8cd98f00b204e9800998ecf8427e";

ManifestEntry entry(const std::string &path, const std::string &md5, DigestAction action)
{
    ManifestEntry entry;
    entry.path = path;
    entry.digests.push_back({DigestFormat::Md5, md5, action});
    return entry;
}

EvidenceEntry logged(const std::string &path, const std::string &states)
{
    EvidenceEntry entry;
    entry.path = path;
    entry.digest = DigestA;
    entry.format = DigestFormat::Md5;
    entry.states = states;
    return entry;
}

std::vector<std::string> pathsOf(const EvidenceLog &log, std::size_t copy)
{
    std::vector<std::string> paths;
    EvidenceLog::Reader reader(log, copy);
    while (reader.next())
        paths.push_back(reader.entry().path + static_cast<char>(reader.state()));
    return paths;
}

} // namespace

TEST(SortKey, FolderComesBeforeItsContentAndContentStaysTogether)
{
    std::vector<std::string> paths{"b", "a-b", "a/c", "a", "a b", "a/b/c", "", "a/b"};
    std::sort(paths.begin(), paths.end(),
              [](const auto &left, const auto &right) { return sortKey(left) < sortKey(right); });
    EXPECT_EQ(paths, (std::vector<std::string>{"", "a", "a/b", "a/b/c", "a/c", "a b", "a-b", "b"}));
    for (const auto &path : paths) {
        const auto key = sortKey(path) + "rest";
        std::string_view record = key;
        EXPECT_EQ(takeSortKey(record), path);
        EXPECT_EQ(record, "rest");
    }
}

TEST(EvidenceLog, LaterStateOfACopyHoldsAndOthersKeepTheirs)
{
    EvidenceLog log("");
    log.add(logged("b", "++"));
    log.add(logged("a", "+-"));
    log.add(logged("b", "-."));
    log.add(logged("c", ".."));
    ASSERT_TRUE(log.finish());
    EXPECT_EQ(pathsOf(log, 0), (std::vector<std::string>{"a+", "b-"}));
    EXPECT_EQ(pathsOf(log, 1), (std::vector<std::string>{"a-", "b+"}));
    EXPECT_EQ(pathsOf(log, 2), (std::vector<std::string>{})) << "there is no such copy";
}

TEST(KnownFiles, FirstOriginalDigestIsTheOneToCheckWith)
{
    KnownFiles known("");
    known.add(entry("a", DigestB, DigestAction::Verified));
    known.add(entry("a", DigestA, DigestAction::Original));
    known.add(entry("b", DigestB, DigestAction::Failed));
    known.add(entry("c", DigestA, DigestAction::Verified));
    ASSERT_TRUE(known.finish());
    KnownFiles::Reader reader(known);
    ASSERT_TRUE(reader);
    EXPECT_EQ(reader.file().toCheckWith()->text, DigestA);
    reader.next();
    EXPECT_EQ(reader.file().path, "b");
    EXPECT_EQ(reader.file().toCheckWith(), nullptr) << "a failed digest says nothing of the file as it was";
    reader.next();
    EXPECT_EQ(reader.file().toCheckWith()->text, DigestA) << "a verified digest, where no original is left";
    reader.next();
    EXPECT_FALSE(reader);
}

TEST(KnownFiles, FileThatGotAnotherNameIsNotMissedUnderTheOldOne)
{
    KnownFiles known("");
    known.add(entry("old", DigestA, DigestAction::Original));
    auto moved = entry("new", DigestA, DigestAction::Original);
    moved.previousPath = "old";
    known.add(moved);
    ASSERT_TRUE(known.finish());
    KnownFiles::Reader reader(known);
    EXPECT_EQ(reader.file().path, "new");
    EXPECT_FALSE(reader.file().isMoved);
    reader.next();
    EXPECT_EQ(reader.file().path, "old");
    EXPECT_TRUE(reader.file().isMoved);
}

TEST(KnownFiles, FolderOfAHistoryIsPutBeforeItsPaths)
{
    KnownFiles known("");
    known.setFolder("roll");
    known.add(entry("a", DigestA, DigestAction::Original));
    ASSERT_TRUE(known.finish());
    EXPECT_EQ(KnownFiles::Reader(known).file().path, "roll/a");
}

TEST(GenerationOf, OnlyNumberedManifestsCount)
{
    EXPECT_EQ(generationOf("0001_CARD_2026-11-21_193912Z.mhl"), 1);
    EXPECT_EQ(generationOf("0123.mhl"), 123);
    EXPECT_EQ(generationOf("12345_x.mhl"), 12345);
    for (const char *name : {"001_x.mhl", "x.mhl", "0001_x.mhl.part", "._0001_x.mhl", "0001x.mhl",
                             "0000_x.mhl", "ascmhl_chain.xml", "-0001_x.mhl", "99999999999999_x.mhl"})
        EXPECT_EQ(generationOf(name), std::nullopt) << name;
}

// The figures are those of the format's own description for an empty folder.
TEST(FolderDigests, OfAnEmptyFolderAreTheDigestOfNothing)
{
    bool isWhole = false;
    EXPECT_EQ(FolderDigestMaker(DigestFormat::Xxh128, "").result(isWhole),
              (FolderDigest{"99aa06d3014798d86001c324468d497f", "99aa06d3014798d86001c324468d497f"}));
    EXPECT_TRUE(isWhole);
}

TEST(FolderDigests, DependOnNamesInTheStructureOnlyAndNotOnTheOrder)
{
    const auto digestOf = [](const std::vector<std::pair<std::string, std::string>> &files) {
        FolderDigestMaker maker(DigestFormat::Md5, "");
        for (const auto &[name, digest] : files)
            maker.addFile(name, digest);
        bool isWhole = false;
        return maker.result(isWhole);
    };
    const auto both = digestOf({{"a", DigestA}, {"b", DigestB}});
    EXPECT_EQ(digestOf({{"b", DigestB}, {"a", DigestA}}), both);
    const auto swapped = digestOf({{"b", DigestA}, {"a", DigestB}});
    EXPECT_EQ(swapped.content, both.content);
    EXPECT_NE(swapped.structure, both.structure);
    EXPECT_NE(digestOf({{"a", DigestA}}).content, both.content);
}

TEST(BytesOfDigest, AreThoseThatTheTextStandsFor)
{
    EXPECT_EQ(bytesOfDigest(DigestFormat::Md5, "00ffAb10").substr(0, 4), std::string("\0\xff\xab\x10", 4));
    // c4 of nothing is the SHA-512 of nothing, which begins with cf83e1.
    EXPECT_EQ(bytesOfDigest(DigestFormat::C4,
                            "c459dsjfscH38cYeXXYogktxf4Cd9ibshE3BHUo6a58hBXmRQdZrAkZzsWcbWtDg5oQst"
                            "pDuni4Hirj75GEmTc1sFT")
                  .substr(0, 3),
              "\xcf\x83\xe1");
}

} // namespace orvana
