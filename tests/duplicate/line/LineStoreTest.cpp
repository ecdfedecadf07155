#include "duplicate/line/LineStore.h"

#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace orvana
{

class LineStoreTest : public testing::Test
{
protected:
    LineStore make(std::int64_t wanted = 3)
    {
        LineHead head;
        head.name = "Reel 7";
        head.job = "{}";
        head.wanted = wanted;
        auto store = LineStore::create(m_files, m_tree.path("state"), head);
        EXPECT_TRUE(store) << store.error();
        return std::move(*store);
    }

    tl::expected<LineStore, std::string> open(const std::string &id, LineStore::Use use = LineStore::Use::Run)
    {
        return LineStore::open(m_files, m_tree.path("state"), id, use);
    }

    static LineDisk disk(std::int64_t number, const std::string &serial = "S1")
    {
        return {number, "Slot-B", "REEL", serial, "M", 1000, "2026-11-23T14:15:30+0100"};
    }

    static LineResult passed()
    {
        LineResult result;
        result.verdict = LineVerdict::Passed;
        return result;
    }

    std::string below(const LineStore &store, const std::string &file) const
    {
        return "state/lines/" + store.head().id + "/" + file;
    }

    void append(const std::string &file, const std::string &text) const
    {
        std::ofstream(m_tree.path(file), std::ios::app) << text;
    }

    test::TemporaryTree m_tree;
    platform::posix::PosixVolumeFiles m_files;
};

TEST_F(LineStoreTest, WhatWasNotedIsThereAgain)
{
    std::string id;
    {
        auto store = make();
        id = store.head().id;
        ASSERT_TRUE(store.begin(disk(1, std::string("S\xFF") + "1")));
        ASSERT_TRUE(store.end(1, passed()));
        ASSERT_TRUE(store.setState(LineState::Paused));
    }
    const auto store = open(id);
    ASSERT_TRUE(store) << store.error();
    EXPECT_EQ(store->head().name, "Reel 7");
    EXPECT_EQ(store->state(), LineState::Paused);
    ASSERT_EQ(store->entries().size(), 1U);
    EXPECT_EQ(store->entries().front().disk, disk(1, std::string("S\xFF") + "1"));
    EXPECT_EQ(store->entries().front().result, passed());
    EXPECT_NE(store->entryOf(std::string("S\xFF") + "1"), nullptr);
    EXPECT_EQ(store->nextNumber(), 2);
}

TEST_F(LineStoreTest, TornLineIsPassedOverAndDoesNotSpoilTheNextOne)
{
    std::string id;
    {
        auto store = make();
        id = store.head().id;
        ASSERT_TRUE(store.begin(disk(1)));
        append(below(store, "events"), "0123456789abcdef {\"end\":{\"number\":1");
    }
    {
        auto store = open(id);
        ASSERT_TRUE(store) << store.error();
        EXPECT_EQ(store->entries().front().result->verdict, LineVerdict::Failed) << "it was in work";
        ASSERT_TRUE(store->begin(disk(2, "S2")));
        ASSERT_TRUE(store->end(2, passed()));
    }
    const auto store = open(id);
    ASSERT_TRUE(store) << store.error();
    EXPECT_EQ(textOf(store->counts()), "1 of 3, 1 failed");
}

TEST_F(LineStoreTest, LedgersThatACrashLeftTornOrBehindAreWrittenAnew)
{
    auto store = std::optional(make());
    const auto id = store->head().id;
    ASSERT_TRUE(store->begin(disk(1)));
    ASSERT_TRUE(store->end(1, passed()));
    const auto csv = m_tree.read(below(*store, "ledger.csv"));
    const auto json = m_tree.read(below(*store, "ledger.jsonl"));
    EXPECT_NE(csv.find("passed"), std::string::npos);
    append(below(*store, "ledger.csv"), "3f9a01c2/2026");
    m_tree.file(below(*store, "ledger.jsonl"), "");
    const auto csvFile = below(*store, "ledger.csv");
    const auto jsonFile = below(*store, "ledger.jsonl");
    store.reset();
    ASSERT_TRUE(open(id));
    EXPECT_EQ(m_tree.read(csvFile), csv);
    EXPECT_EQ(m_tree.read(jsonFile), json);
}

TEST_F(LineStoreTest, OnlyOneProgramRunsALine)
{
    const auto store = make();
    const auto second = open(store.head().id);
    ASSERT_FALSE(second);
    EXPECT_EQ(second.error(), store.head().id + ": another program runs this line");
    const auto look = open(store.head().id, LineStore::Use::Look);
    ASSERT_TRUE(look);
    EXPECT_TRUE(look->isRunning(m_files));
}

TEST_F(LineStoreTest, WishIsTakenOnce)
{
    const auto store = make();
    EXPECT_EQ(store.takeWish(), LineWish::None);
    const auto look = open(store.head().id, LineStore::Use::Look);
    ASSERT_TRUE(look->wish(LineWish::Pause));
    ASSERT_TRUE(look->wish(LineWish::Resume));
    EXPECT_EQ(store.takeWish(), LineWish::Resume);
    EXPECT_EQ(store.takeWish(), LineWish::None);
}

TEST_F(LineStoreTest, OnlyLinesOfTheStationAreOpened)
{
    make();
    for (const char *id : {"", ".", "..", "../lines", "no-such-line", "a/b"})
        EXPECT_FALSE(open(id)) << id;
}

TEST_F(LineStoreTest, StationHasOneIdForEver)
{
    const auto id = stationId(m_files, m_tree.path("state"));
    ASSERT_TRUE(id) << id.error();
    EXPECT_EQ(id->size(), 8U);
    EXPECT_EQ(stationId(m_files, m_tree.path("state")), id);
    EXPECT_EQ(make().head().station, *id);
}

TEST_F(LineStoreTest, LedgerThatCannotBeWrittenIsAnError)
{
    auto store = make();
    ASSERT_TRUE(store.begin(disk(1)));
    std::filesystem::remove(m_tree.path(below(store, "ledger.csv")));
    const auto ended = store.end(1, passed());
    ASSERT_FALSE(ended);
    EXPECT_NE(ended.error().find("ledger.csv"), std::string::npos) << ended.error();
}

TEST_F(LineStoreTest, LinesAreListedTheOldestFirst)
{
    EXPECT_TRUE(LineStore::idsIn(m_files, m_tree.path("state")).empty());
    const auto first = make().head().id;
    const auto second = make().head().id;
    EXPECT_EQ(LineStore::idsIn(m_files, m_tree.path("state")).size(), 2U);
}

} // namespace orvana
