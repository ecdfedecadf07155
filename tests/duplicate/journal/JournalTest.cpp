#include "duplicate/journal/JournalIndex.h"
#include "duplicate/journal/Journals.h"
#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana
{

namespace
{

JournalRecord recordOf(const std::string &path, std::uint64_t group = 1, std::uint64_t bytes = 100)
{
    return {.destination = 0,
            .group = group,
            .bytes = bytes,
            .check = CopyCheck::FromDisk,
            .source = {.size = 1, .inode = 2, .modified = -3, .changed = 4},
            .copy = {.size = 5, .inode = 6, .modified = 7, .changed = 8},
            .digest = "xxh128:00ff",
            .path = path};
}

std::string_view withoutNewline(const std::string &line)
{
    return std::string_view(line).substr(0, line.size() - 1);
}

} // namespace

TEST(JournalLine, RecordIsReadAsItWasWritten)
{
    for (const std::string path :
         {"plain", "with blank", "new\nline", "percent%41", "\xff\x01\x7f", "ünï", "", "a/b/c"}) {
        const auto record = recordOf(path);
        const auto line = lineOf(record);
        EXPECT_EQ(line.find('\n'), line.size() - 1);
        const auto read = parseLine(withoutNewline(line));
        ASSERT_TRUE(read) << path;
        EXPECT_EQ(read->record, record);
    }
}

TEST(JournalLine, EveryDamagedLineIsRefused)
{
    const auto line = std::string(withoutNewline(lineOf(recordOf("film"))));
    for (std::size_t i = 0; i < line.size(); ++i) {
        auto damaged = line;
        damaged[i] ^= 1;
        EXPECT_FALSE(parseLine(damaged)) << i;
        EXPECT_FALSE(parseLine(std::string_view(line).substr(0, i))) << i;
    }
    EXPECT_FALSE(parseLine(""));
}

TEST(JournalLine, PlacesAreComparedByVolumeAndDiskIfBothAreKnown)
{
    const JournalPlace named{"/media/a", "V1", "S1"};
    EXPECT_TRUE(isSamePlace(named, {"/media/elsewhere", "V1", "S1"}));
    EXPECT_FALSE(isSamePlace(named, {"/media/a", "V2", "S1"}));
    EXPECT_FALSE(isSamePlace(named, {"/media/a", "V1", "S2"})) << "a clone of the disk";
    EXPECT_FALSE(isSamePlace(named, {"/media/a", "", ""}));
    EXPECT_TRUE(isSamePlace({"/a", "", ""}, {"/a", "", ""}));
    EXPECT_TRUE(mayBeSamePlace(named, {"/media/a", "V2", "S2"}));
    EXPECT_TRUE(mayBeSamePlace(named, {"/b", "V1", ""}));
    EXPECT_FALSE(mayBeSamePlace(named, {"/b", "", ""}));
}

class JournalTest : public testing::Test
{
protected:
    Journals journals()
    {
        auto opened = Journals::open(m_files, m_tree.path("state"));
        EXPECT_TRUE(opened);
        return std::move(*opened);
    }

    test::TemporaryTree m_tree;
    platform::posix::PosixVolumeFiles m_files;
    const JournalPlace m_source{"/source", "V0", "S0"};
    const JournalPlace m_a{"/a", "V1", "S1"};
    const JournalPlace m_b{"/b", "V2", "S2"};
};

TEST_F(JournalTest, NewestJournalOfTheSourceIsFound)
{
    auto all = journals();
    ASSERT_TRUE(all.create(m_source, {m_a}, "a job"));
    const auto second = all.create(m_source, {m_a, m_b}, {});
    ASSERT_TRUE(second);
    ASSERT_TRUE(all.create({"/other", "V9", "S9"}, {m_a}, {}));
    const auto found = all.find(m_source, {m_a});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->name, second->name);
    EXPECT_FALSE(all.find(m_source, {{"/c", "V3", "S3"}}));
}

TEST_F(JournalTest, EndedDestinationIsNotFoundAndALonelyJournalGoes)
{
    auto all = journals();
    ASSERT_TRUE(all.create(m_source, {m_a, m_b}, {}));
    all.end({m_a}, {});
    EXPECT_FALSE(all.find(m_source, {m_a}));
    ASSERT_TRUE(all.find(m_source, {m_b}));
    all.end({m_b}, {});
    EXPECT_TRUE(all.heads().empty());
}

TEST_F(JournalTest, NumberOfAnEndedDestinationIsNotGivenAgain)
{
    auto all = journals();
    auto head = all.create(m_source, {m_a, m_b}, {});
    ASSERT_TRUE(head);
    all.end({m_b}, {});
    auto found = all.find(m_source, {m_a});
    ASSERT_TRUE(found);
    EXPECT_EQ(all.addDestination(*found, m_b), 2U);
}

TEST_F(JournalTest, OldJournalsAreRemoved)
{
    auto all = journals();
    for (int i = 0; i < 40; ++i)
        ASSERT_TRUE(all.create({"/source" + std::to_string(i), {}, {}}, {m_a}, {}));
    EXPECT_LE(all.heads().size(), 16U);
    EXPECT_EQ(all.heads().back().source.root, "/source39");
}

TEST_F(JournalTest, LastRecordOfACopyCounts)
{
    auto all = journals();
    const auto head = all.create(m_source, {m_a}, "a job");
    auto copies = all.openCopies(*head);
    ASSERT_TRUE(copies);
    auto second = recordOf("film", 2, 1ULL << 30U);
    second.copy.size = 99;
    ASSERT_TRUE(copies->append(lineOf(recordOf("film")) + lineOf(second) +
                               lineOf(recordOf("other", 3, 1ULL << 40U))));
    const JournalIndex index(*copies, m_tree.root());
    const auto found = index.find(0, "film");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->record.copy.size, 99U);
    EXPECT_FALSE(found->isRecent);
    EXPECT_TRUE(index.find(0, "other")->isRecent);
    EXPECT_FALSE(index.find(1, "film"));
    EXPECT_FALSE(index.find(0, "fil"));
    EXPECT_EQ(index.lastOf(0).group, 3U);
}

TEST_F(JournalTest, ManyRecordsAreAllFound)
{
    auto all = journals();
    const auto head = all.create(m_source, {m_a}, "a job");
    auto copies = all.openCopies(*head);
    ASSERT_TRUE(copies);
    std::string lines;
    for (int i = 0; i < 5000; ++i)
        lines += lineOf(recordOf(std::to_string(i), 1, static_cast<std::uint64_t>(i)));
    ASSERT_TRUE(copies->append(lines));
    const JournalIndex index(*copies, m_tree.root());
    for (int i = 0; i < 5000; ++i) {
        const auto found = index.find(0, std::to_string(i));
        ASSERT_TRUE(found) << i;
        EXPECT_EQ(found->record.bytes, static_cast<std::uint64_t>(i));
    }
}

TEST_F(JournalTest, BytesWithoutALineAreNotGathered)
{
    auto all = journals();
    const auto head = all.create(m_source, {m_a}, "a job");
    auto copies = all.openCopies(*head);
    ASSERT_TRUE(copies);
    ASSERT_TRUE(copies->append(std::string(300'000, 'x')));
    ASSERT_TRUE(copies->append("\n" + lineOf(recordOf("film"))));
    const JournalIndex index(*copies, m_tree.root());
    EXPECT_TRUE(index.find(0, "film"));
}

} // namespace orvana
