#include "duplicate/engine/Workers.h"
#include <array>
#include <atomic>
#include <cerrno>
#include <gtest/gtest.h>
#include <new>
#include <thread>

namespace orvana
{

TEST(Workers, EveryPieceIsDoneOnceInEveryRound)
{
    Workers workers(4);
    for (int round = 0; round < 500; ++round) {
        std::array<std::atomic<int>, 4> done{};
        const Workers::Work work = [&](std::size_t piece) { ++done[piece]; };
        bool isMeanwhileDone = round % 2 == 0;
        if (isMeanwhileDone)
            workers.share(work, 4, 1);
        else
            workers.doBeside(work, 4, 4, [&] { isMeanwhileDone = true; });
        for (const auto &count : done)
            ASSERT_EQ(count, 1);
        ASSERT_TRUE(isMeanwhileDone);
    }
}

TEST(Workers, WhatAPieceThrowsReachesTheCallerOnceAllPiecesAreDone)
{
    Workers workers(3);
    for (int round = 0; round < 200; ++round) {
        std::atomic<int> done{0};
        const Workers::Work work = [&](std::size_t piece) {
            ++done;
            if (piece == 1)
                throw std::bad_alloc();
        };
        const auto roundOfWork = [&] {
            if (round % 2 == 0)
                workers.share(work, 4, 3);
            else
                workers.doBeside(work, 4, 3, [] {});
        };
        ASSERT_THROW(roundOfWork(), std::bad_alloc);
        ASSERT_EQ(done, 4);
    }
    std::atomic<int> done{0};
    workers.share([&](std::size_t) { ++done; }, 4, 3);
    EXPECT_EQ(done, 4) << "an exception ended its own round only";
}

TEST(Workers, WhatTheCallerThrowsMeanwhileWaitsForThePieces)
{
    Workers workers(2);
    std::atomic<int> done{0};
    const Workers::Work work = [&](std::size_t) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        ++done;
    };
    EXPECT_THROW(workers.doBeside(work, 4, 2, [] { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_EQ(done, 4);
}

TEST(Workers, WithoutHelpersTheCallerDoesAllInOrder)
{
    Workers workers(3);
    std::vector<std::size_t> order;
    workers.share([&](std::size_t piece) { order.push_back(piece); }, 3, 0);
    EXPECT_EQ(order, (std::vector<std::size_t>{0, 1, 2}));
}

} // namespace orvana
