#include "duplicate/evidence/DiskSort.h"
#include "support/TemporaryTree.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace orvana
{

namespace
{

std::vector<std::string> recordsOf(const DiskSort &sort)
{
    std::vector<std::string> records;
    for (DiskSort::Cursor cursor(sort); cursor; cursor.next())
        records.emplace_back(cursor.record());
    return records;
}

// A fixed seed, so that a failure comes again.
std::vector<std::string> randomRecords(std::size_t count)
{
    std::mt19937 random(7);
    std::vector<std::string> records(count);
    for (auto &record : records) {
        record.resize(random() % 40);
        for (auto &byte : record)
            byte = static_cast<char>(random());
    }
    return records;
}

class DiskSortOf : public testing::TestWithParam<std::size_t>
{
protected:
    test::TemporaryTree m_tree;
};

} // namespace

TEST_P(DiskSortOf, ReturnsEveryRecordInOrderWhateverFitsIntoMemory)
{
    auto records = randomRecords(5000);
    DiskSort sort(m_tree.root(), GetParam());
    for (const auto &record : records)
        sort.add(record);
    ASSERT_TRUE(sort.finish());
    std::sort(records.begin(), records.end());
    EXPECT_EQ(sort.count(), records.size());
    EXPECT_EQ(recordsOf(sort), records);
    EXPECT_EQ(recordsOf(sort), records) << "a second cursor";
    EXPECT_TRUE(test::namesIn(m_tree.root()).empty()) << "the file has no name";
}

INSTANTIATE_TEST_SUITE_P(Budgets, DiskSortOf, testing::Values(1, 1000, 20'000, 10'000'000));

TEST(DiskSort, OfNothingIsEmpty)
{
    DiskSort sort("", 1000);
    EXPECT_TRUE(sort.finish());
    EXPECT_FALSE(DiskSort::Cursor(sort));
}

TEST(DiskSort, RecordsLongerThanTheReadBufferComeBackWhole)
{
    const test::TemporaryTree tree;
    DiskSort sort(tree.root(), 1000);
    const std::vector<std::string> records{std::string(100'000, 'a'), std::string(70'000, 'b'), "c"};
    for (auto record = records.rbegin(); record != records.rend(); ++record)
        sort.add(*record);
    EXPECT_TRUE(sort.finish());
    EXPECT_EQ(recordsOf(sort), records);
}

TEST(DiskSort, FolderThatIsMissingIsReplacedByTheSystemsOwn)
{
    DiskSort sort("/nonexistent", 10);
    for (const char *record : {"cccccccccc", "aaaaaaaaaa", "bbbbbbbbbb"})
        sort.add(record);
    EXPECT_TRUE(sort.finish());
    EXPECT_EQ(recordsOf(sort), (std::vector<std::string>{"aaaaaaaaaa", "bbbbbbbbbb", "cccccccccc"}));
}

} // namespace orvana
