#include "duplicate/engine/WriteOutPump.h"

#include <atomic>
#include <cerrno>
#include <gtest/gtest.h>
#include <new>
#include <thread>

namespace orvana
{

namespace
{

/// A volume whose syncs a test can delay or make fail.
struct SyncedVolume final : platform::Folder
{
    platform::Expected<void> syncVolume() override
    {
        if (hasNoMemory)
            throw std::bad_alloc();
        const bool isToFail = fails; // read before the test can see this sync and change the value
        ++syncs;
        while (isHeld)
            std::this_thread::yield();
        if (isToFail)
            return platform::failure(5);
        return {};
    }
    platform::Expected<platform::Attributes> attributes(std::string_view, platform::Links,
                                                        platform::Want) const override
    {
        return platform::failure(5);
    }
    platform::Expected<std::string> realPath(std::string_view) const override
    {
        return platform::failure(ENOTSUP);
    }
    platform::Expected<platform::NameList> list(std::string_view) const override
    {
        return platform::failure(5);
    }
    platform::Expected<std::unique_ptr<Folder>> openFolder(std::string_view) const override
    {
        return platform::failure(5);
    }
    platform::Expected<std::unique_ptr<platform::File>> openFile(std::string_view,
                                                                 platform::Access) const override
    {
        return platform::failure(5);
    }
    platform::Expected<std::unique_ptr<platform::File>>
    createFile(std::string_view, const platform::Attributes &) const override
    {
        return platform::failure(5);
    }
    platform::Expected<void> makeFolder(std::string_view, const platform::Attributes &) const override
    {
        return platform::failure(5);
    }
    platform::Expected<void> finishFolder(std::string_view, const platform::Attributes &) const override
    {
        return platform::failure(5);
    }
    platform::Expected<void> rename(std::string_view, std::string_view, platform::Existing) const override
    {
        return platform::failure(5);
    }
    platform::Expected<std::string> linkText(std::string_view) const override { return platform::failure(5); }
    platform::Expected<void> makeLink(std::string_view, const std::string &) const override
    {
        return platform::failure(5);
    }
    platform::Expected<void> addName(std::string_view, std::string_view) const override
    {
        return platform::failure(5);
    }
    platform::Expected<platform::Metadata> metadata(std::string_view, platform::Keep) const override
    {
        return platform::failure(5);
    }
    platform::Expected<platform::MissingParts> apply(std::string_view, const platform::Metadata &,
                                                     platform::Keep) const override
    {
        return platform::failure(5);
    }
    platform::Expected<void> remove(std::string_view) const override { return platform::failure(5); }
    platform::VolumeTraits traits() const override { return {}; }
    platform::Expected<std::uint64_t> freeBytes() const override { return 0; }

    std::atomic<int> syncs{0};
    std::atomic<bool> isHeld{false};
    std::atomic<bool> fails{false};
    std::atomic<bool> hasNoMemory{false};
};

constexpr std::uint64_t Mebibyte = 1'048'576;

} // namespace

TEST(WriteOutPump, SyncsOnlyOnceEnoughHasGatheredAndAtTheEnd)
{
    SyncedVolume volume;
    WriteOutPump pump(volume);
    pump.noteWritten(15 * Mebibyte);
    EXPECT_EQ(volume.syncs, 0);
    pump.startFinalSync();
    const auto outcome = pump.waitForFinalSync({});
    ASSERT_TRUE(outcome);
    EXPECT_TRUE(outcome->result);
    EXPECT_EQ(volume.syncs, 1);
}

TEST(WriteOutPump, ErrorOfAnEarlierSyncIsTheOutcome)
{
    SyncedVolume volume;
    volume.fails = true;
    WriteOutPump pump(volume);
    pump.noteWritten(20 * Mebibyte);
    while (volume.syncs == 0)
        std::this_thread::yield();
    volume.fails = false;
    pump.startFinalSync();
    EXPECT_FALSE(pump.waitForFinalSync({})->result);
}

TEST(WriteOutPump, PumpThatRunsOutOfMemoryKeepsNobodyWaitingAndIsToldAsAFailedSync)
{
    SyncedVolume volume;
    volume.hasNoMemory = true;
    WriteOutPump pump(volume);
    pump.noteWritten(300 * Mebibyte);
    pump.waitForRoom({});
    pump.startFinalSync();
    const auto outcome = pump.waitForFinalSync({});
    ASSERT_TRUE(outcome);
    ASSERT_FALSE(outcome->result);
    EXPECT_EQ(outcome->result.error().code, ENOMEM);
    pump.noteWritten(300 * Mebibyte);
    pump.waitForRoom({});
}

namespace
{

/// A file that counts the bytes that are written out.
struct WrittenOutFile final : platform::File
{
    platform::Expected<platform::Attributes> attributes() const override { return platform::Attributes(); }
    platform::Expected<std::size_t> read(std::span<std::byte>, std::uint64_t) override { return 0; }
    void willRead(std::uint64_t, std::uint64_t) override {}
    platform::Expected<void> write(std::span<const std::byte>, std::uint64_t) override { return {}; }
    platform::Expected<void> cutTo(std::uint64_t) override { return {}; }
    platform::Expected<void> growTo(std::uint64_t) override { return {}; }
    std::vector<platform::Range> dataIn(const platform::Range &range) const override { return {range}; }
    platform::Expected<void> makeHole(const platform::Range &) override { return {}; }
    platform::Expected<platform::Metadata> metadata(platform::Keep) const override
    {
        return platform::Metadata();
    }
    platform::MissingParts apply(const platform::Metadata &, platform::Keep) override { return {}; }
    platform::Expected<void> startWriteOut(std::uint64_t, std::uint64_t length) override
    {
        started += length;
        return {};
    }
    platform::Expected<void> finishWriteOut(std::uint64_t, std::uint64_t length) override
    {
        finished += length;
        return {};
    }
    platform::Expected<void> sync() override { return {}; }
    void dropCached(std::uint64_t, std::uint64_t) override {}
    bool isOutOfMemory() const override { return true; }
    platform::Expected<void> close() override { return {}; }

    std::atomic<std::uint64_t> started{0};
    std::atomic<std::uint64_t> finished{0};
};

class RangeSizes : public testing::TestWithParam<std::uint64_t>
{
};

} // namespace

TEST_P(RangeSizes, LargeFileGoesOnWhateverTheSizeOfARange)
{
    constexpr std::uint64_t Length = 300 * Mebibyte;
    SyncedVolume volume;
    WrittenOutFile file;
    WriteOutPump pump(volume);
    for (std::uint64_t offset = 0; offset < Length; offset += GetParam()) {
        ASSERT_TRUE(pump.noteRange(file, offset, GetParam()));
        pump.waitForRoom({});
    }
    EXPECT_GE(file.finished + 64 * Mebibyte, Length) << "no more than that is behind";
    ASSERT_TRUE(pump.leave(file));
    EXPECT_LE(file.finished, file.started);
}

INSTANTIATE_TEST_SUITE_P(WriteOutPump, RangeSizes,
                         testing::Values(65'536, Mebibyte, 4 * Mebibyte, 100 * Mebibyte));

TEST(WriteOutPump, CopyWaitsWhileTooMuchIsOnItsWayAndCancelEndsTheWait)
{
    SyncedVolume volume;
    volume.isHeld = true;
    WriteOutPump pump(volume);
    pump.noteWritten(20 * Mebibyte);
    while (volume.syncs == 0)
        std::this_thread::yield();
    pump.noteWritten(300 * Mebibyte);
    std::atomic<bool> wentOn{false};
    std::stop_source cancel;
    std::jthread copy([&] {
        pump.waitForRoom(cancel.get_token());
        wentOn = true;
    });
    std::this_thread::yield();
    EXPECT_FALSE(wentOn);
    cancel.request_stop();
    copy.join();
    EXPECT_FALSE(pump.waitForFinalSync(cancel.get_token()));
    volume.isHeld = false;
}

} // namespace orvana
