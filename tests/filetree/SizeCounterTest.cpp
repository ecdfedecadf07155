#include "filetree/SizeCounter.h"
#include "filetree/SelectionCount.h"

#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "foundation/WorkerThread.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <atomic>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>
#include <random>
#include <thread>

namespace orvana
{

using test::TemporaryTree;

namespace
{

class Counting : public testing::Test
{
protected:
    std::pair<std::int64_t, std::uint64_t> count(const std::string &path)
    {
        CountTotals totals;
        SizeCounter(host, totals, [this] { ++told; }).sizeOfFolder(path);
        return {totals.totalFiles, totals.totalSize};
    }

    TemporaryTree tree;
    test::TestHost host{tree.path("home")};
    int told = 0;
};

using Totals = std::pair<std::int64_t, std::uint64_t>;

} // namespace

TEST_F(Counting, FoldersAddNothingAndEveryFileIsToldOnce)
{
    tree.file("A/one", "123");
    tree.file("A/B/C/two", "12345");
    tree.folder("A/empty");
    EXPECT_EQ(count(tree.path("A")), Totals(2, 8));
    EXPECT_EQ(told, 2);
}

TEST_F(Counting, LargeTreeIsCountedByTwoAndToldByOne)
{
    std::uint64_t size = 0;
    for (int folder = 0; folder < 60; ++folder) {
        for (int file = 0; file < 50; ++file) {
            const auto path =
                "A/" + std::to_string(folder % 7) + "/" + std::to_string(folder) + "/" + std::to_string(file);
            tree.file(path, std::string(static_cast<std::size_t>(file), 'x'));
            size += static_cast<std::uint64_t>(file);
        }
    }
    for (int round = 0; round < 20; ++round) {
        CountTotals totals;
        std::int64_t calls = 0;
        const auto here = std::this_thread::get_id();
        SizeCounter(host, totals, [&] {
            EXPECT_EQ(std::this_thread::get_id(), here);
            EXPECT_GE(totals.totalFiles, ++calls) << "the totals grow first";
        }).sizeOfFolder(tree.path("A"));
        ASSERT_EQ(calls, 3000);
        ASSERT_EQ(totals.totalFiles, 3000);
        ASSERT_EQ(totals.totalSize, size);
    }
}

TEST_F(Counting, CancelledCountOfALargeTreeEndsWithItsHelper)
{
    for (int folder = 0; folder < 60; ++folder) {
        for (int file = 0; file < 50; ++file)
            tree.file("A/" + std::to_string(folder) + "/" + std::to_string(file), "x");
    }
    CountTotals totals;
    std::atomic<std::int64_t> calls{0};
    std::mutex mutex;
    std::condition_variable changed;
    bool mayGoOn = false;
    WorkerThread counting([&] {
        SizeCounter(host, totals, [&] {
            if (++calls < 1500)
                return;
            std::unique_lock lock(mutex);
            changed.notify_all();
            changed.wait(lock, [&] { return mayGoOn; });
        }).sizeOfFolder(tree.path("A"));
    });
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return calls >= 1500; });
        counting.requestCancel();
        mayGoOn = true;
        changed.notify_all();
    }
    ASSERT_TRUE(counting.waitForEnd(std::chrono::seconds(30)));
    EXPECT_LE(calls, 3000);
    EXPECT_LE(totals.totalFiles, 3000);
}

TEST_F(Counting, SingleFileCountsAsItself)
{
    EXPECT_EQ(count(tree.file("one", "1234")), Totals(1, 4));
}

TEST_F(Counting, MissingPathCountsAsOneFileOfNoBytes)
{
    EXPECT_EQ(count(tree.path("gone")), Totals(1, 0));
}

TEST_F(Counting, HiddenExtensionIsNeverCountedEvenWhenItsRowIsTicked)
{
    const auto photo = tree.file("A/Photo.jpg", "123");
    tree.file("A/Shown", "1");
    if (!test::hideExtension(photo))
        GTEST_SKIP() << "no extended attributes in the temporary folder";
    EXPECT_EQ(count(photo), Totals(0, 0));
    EXPECT_EQ(count(tree.path("A")), Totals(1, 1));
}

TEST_F(Counting, PackageIsCountedWithoutItsHiddenContents)
{
    const auto inside = tree.file("Song.band/Inside.wav", "123");
    tree.file("Song.band/Shown.wav", "1");
    if (!test::hideExtension(inside))
        GTEST_SKIP() << "no extended attributes in the temporary folder";
    EXPECT_EQ(count(tree.path("Song.band")), Totals(1, 1));
}

TEST_F(Counting, LinksDotNamesAndReservedPathsAreLeftOut)
{
    tree.file("A/one", "1");
    tree.link("A/link", tree.path("A/one"));
    tree.file("A/.hidden", "12");
    tree.file("A/.folder/file", "123");
    tree.file("A/Temporary Items/file", "1234");
    tree.file("home/Library/file", "12345");
    tree.file("home/Public/file", "12345");
    tree.file("home/Music/file", "1");
    EXPECT_EQ(count(tree.root()), Totals(2, 2));
}

TEST_F(Counting, UsersOwnLibraryIsCountedWhenItIsAskedFor)
{
    tree.file("home/Library/file", "12345");
    EXPECT_EQ(count(tree.path("home/Library")), Totals(1, 5));
}

TEST_F(Counting, ReservedWordAboveLeavesEverythingOut)
{
    tree.file("Network Trash Folder/A/file", "1");
    EXPECT_EQ(count(tree.path("Network Trash Folder/A")), Totals(0, 0));
}

namespace
{

class SelectionCounting : public Counting
{
protected:
    static FileListRow ticked(std::string path) { return {std::move(path), false, FileSystemItem::On}; }

    NotificationCenter center;
    SelectionCount selection{host, center};
};

} // namespace

TEST_F(SelectionCounting, OnlyClosedRowsThatAreOnAreCounted)
{
    const auto on = tree.file("on", "1");
    const auto off = tree.file("off", "22");
    const auto mixed = tree.file("mixed/file", "333");
    selection.start({{tree.root(), true, FileSystemItem::On},
                     ticked(on),
                     {off, false, FileSystemItem::Off},
                     {mixed, false, FileSystemItem::Mixed}});
    ASSERT_TRUE(selection.waitForEnd(std::chrono::seconds(30)));
    EXPECT_EQ(selection.totalFiles(), 1);
    EXPECT_EQ(selection.totalSize(), 1U);
}

TEST_F(SelectionCounting, ClosedTickedRootCountsTheWholeVolume)
{
    tree.file("A/one", "1");
    tree.file("B/C/two", "22");
    selection.start({ticked(tree.root())});
    ASSERT_TRUE(selection.waitForEnd(std::chrono::seconds(30)));
    EXPECT_EQ(selection.totalFiles(), 2);
    EXPECT_EQ(selection.totalSize(), 3U);
}

TEST_F(SelectionCounting, SizeIsToldOnceAFileAndOnceMoreAtTheEndBeforeTheColours)
{
    tree.file("A/one");
    tree.file("A/two");
    std::vector<std::string> posted;
    std::vector<NotificationCenter::Subscription> subscriptions;
    for (const char *name : {notification::FileSizeChange, notification::UpdateDiskInfoColor})
        subscriptions.push_back(
            center.subscribe(name, [&](const Notification &n) { posted.push_back(n.name); }));
    selection.start({ticked(tree.path("A"))});
    ASSERT_TRUE(selection.waitForEnd(std::chrono::seconds(30)));
    const std::string size = notification::FileSizeChange;
    EXPECT_EQ(posted, (std::vector<std::string>{size, size, size, notification::UpdateDiskInfoColor}));
}

TEST_F(SelectionCounting, CancelledCountIsHeardNoMoreAndTheNewTotalsStandAlone)
{
    tree.file("A/one", "1");
    tree.file("A/two", "1");
    tree.file("B/three", "22");
    std::mutex mutex;
    std::condition_variable changed;
    bool isHeld = false;
    bool isFree = false;
    int ends = 0;
    const auto hold = center.subscribe(notification::FileSizeChange, [&](const Notification &) {
        std::unique_lock lock(mutex);
        if (std::exchange(isHeld, true))
            return;
        changed.notify_all();
        changed.wait(lock, [&] { return isFree; });
    });
    const auto countEnds = center.subscribe(notification::UpdateDiskInfoColor, [&](const Notification &) {
        const std::lock_guard lock(mutex);
        ++ends;
    });
    selection.start({ticked(tree.path("A"))});
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return isHeld; });
    }
    selection.start({ticked(tree.path("B"))});
    {
        const std::lock_guard lock(mutex);
        isFree = true;
        changed.notify_all();
    }
    ASSERT_TRUE(selection.waitForEnd(std::chrono::seconds(30)));
    EXPECT_EQ(selection.totalFiles(), 1);
    EXPECT_EQ(selection.totalSize(), 2U);
    EXPECT_EQ(ends, 1);
}

TEST_F(SelectionCounting, StoppedCountPostsNoEnd)
{
    tree.file("A/one");
    int ends = 0;
    const auto countEnds =
        center.subscribe(notification::UpdateDiskInfoColor, [&](const Notification &) { ++ends; });
    const auto stop = center.subscribe(notification::FileSizeChange, [&](const Notification &) {});
    selection.start({});
    selection.stop();
    ASSERT_TRUE(selection.waitForEnd(std::chrono::seconds(30)));
    EXPECT_LE(ends, 1); // the count may have ended already
    const int before = ends;
    selection.start({ticked(tree.path("A"))});
    ASSERT_TRUE(selection.waitForEnd(std::chrono::seconds(30)));
    EXPECT_EQ(ends, before + 1);
}

TEST_F(SelectionCounting, CountsStartedAndCancelledAtRandomEndWithTheLastOnesTotals)
{
#ifdef __SANITIZE_THREAD__
    constexpr std::chrono::seconds Length(30);
#else
    constexpr std::chrono::seconds Length(1);
#endif
    for (int folder = 0; folder < 20; ++folder) {
        for (int file = 0; file < 20; ++file)
            tree.file("A/" + std::to_string(folder) + "/" + std::to_string(file), "12");
    }
    std::atomic<std::uint64_t> heard{0};
    const auto listen =
        center.subscribe(notification::FileSizeChange, [&](const Notification &) { ++heard; });
    std::mt19937 random(7);
    const auto end = std::chrono::steady_clock::now() + Length;
    while (std::chrono::steady_clock::now() < end) {
        if (random() % 4 == 0)
            selection.stop();
        else
            selection.start({ticked(tree.path("A"))});
        if (random() % 3 == 0)
            std::this_thread::sleep_for(std::chrono::microseconds(random() % 3000));
        EXPECT_LE(selection.totalFiles(), 400);
    }
    selection.start({ticked(tree.path("A"))});
    ASSERT_TRUE(selection.waitForEnd(std::chrono::seconds(30)));
    EXPECT_EQ(selection.totalFiles(), 400);
    EXPECT_EQ(selection.totalSize(), 800U);
    EXPECT_GT(heard, 0U);
}

} // namespace orvana
