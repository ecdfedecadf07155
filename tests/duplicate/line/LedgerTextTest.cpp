#include "duplicate/line/LedgerText.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana
{

namespace
{

LineHead head(const std::string &station)
{
    LineHead head;
    head.station = station;
    head.id = "20261123-141530-7c1e";
    return head;
}

LineEntry entry(std::int64_t number, const std::string &name = "REEL")
{
    LineEntry entry;
    entry.disk = {
        number, "Slot-B", name, "S" + std::to_string(number), "M", 1000, "2026-11-23T14:15:30+0100"};
    entry.result = LineResult();
    entry.result->verdict = LineVerdict::Passed;
    entry.result->ended = "2026-11-23T14:20:00+0100";
    return entry;
}

LedgerFile csv(const std::string &station, std::initializer_list<std::int64_t> numbers)
{
    LedgerFile file{station + ".csv", ledgerHeading()};
    for (const auto number : numbers)
        file.text += csvRow(head(station), entry(number));
    return file;
}

} // namespace

TEST(LedgerText, FieldsWithCommasQuotesAndLineEndsAreReadBack)
{
    const std::vector<std::vector<std::string>> rows{{"a,b", "say \"hi\"", "two\r\nlines", ""}, {"1", "2"}};
    EXPECT_EQ(parseCsv(csvText(rows)), rows);
}

TEST(LedgerText, BrokenCsvIsRefusedWithItsRow)
{
    EXPECT_EQ(parseCsv("a,b\r\n\"open").error(), "row 2: a quoted field does not end");
    EXPECT_EQ(parseCsv("\"a\"b\n").error(), "row 1: something stands behind a quoted field");
}

TEST(LedgerText, RowsOfBothFormatsAreTheSame)
{
    const LedgerFile json{"a.jsonl", jsonRow(head("3f9a01c2"), entry(1, "A, \"B\""))};
    const LedgerFile text{"a.csv", ledgerHeading() + csvRow(head("3f9a01c2"), entry(1, "A, \"B\""))};
    const auto fromJson = collectLedgers({json});
    ASSERT_TRUE(fromJson) << fromJson.error();
    EXPECT_EQ(fromJson, collectLedgers({text}));
    EXPECT_EQ(fromJson->front().front(), "3f9a01c2/20261123-141530-7c1e/0001");
}

TEST(LedgerText, LedgersOfThreeStationsAreJoinedWithEachIdOnce)
{
    const auto rows = collectLedgers(
        {csv("bbbbbbbb", {1, 2}), csv("aaaaaaaa", {1, 2, 3}), csv("cccccccc", {1}), csv("bbbbbbbb", {1, 2})});
    ASSERT_TRUE(rows) << rows.error();
    ASSERT_EQ(rows->size(), 6U);
    EXPECT_TRUE(rows->front().front().starts_with("aaaaaaaa/"));
    EXPECT_TRUE(rows->back().front().starts_with("cccccccc/"));
}

TEST(LedgerText, OneIdForTwoDisksIsRefused)
{
    auto other = csv("aaaaaaaa", {});
    other.name = "other.csv";
    other.text += csvRow(head("aaaaaaaa"), entry(1, "ANOTHER"));
    const auto rows = collectLedgers({csv("aaaaaaaa", {1}), other});
    ASSERT_FALSE(rows);
    EXPECT_EQ(rows.error(),
              "other.csv: aaaaaaaa/20261123-141530-7c1e/0001 is another disk in another ledger");
}

TEST(LedgerText, WhatIsNoLedgerIsRefused)
{
    EXPECT_EQ(collectLedgers({{"a.csv", "x,y\r\n"}}).error(),
              "a.csv: not a ledger: its first line is another one");
    EXPECT_EQ(collectLedgers({{"a.csv", ""}}).error(), "a.csv: not a ledger: its first line is another one");
    EXPECT_EQ(collectLedgers({{"a.jsonl", "{\"id\":1}\n"}}).error(), "a.jsonl: row 1: no \"station\"");
    EXPECT_EQ(collectLedgers({{"a.jsonl", "{\"id\"\n"}}).error(), "a.jsonl: row 1: not a JSON object");
    EXPECT_EQ(collectLedgers({{"a.csv", ledgerHeading() + "1,2\r\n"}}).error(),
              "a.csv: row 2: 2 fields in place of 18");
}

} // namespace orvana
