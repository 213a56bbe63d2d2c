// The two-stage pipeline that reads large GPX files: records arrive in order
// across many blocks, an early stop ends the worker, and a failure on either
// side reaches the caller after what came before it.
#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <stdexcept>
#include <vector>

#include "gpsformats/BlockPipeline.h"

namespace ortelix {
namespace {

// Fills blocks with 0, 1, 2, ... up to `count` (exclusive).
struct Counter {
    int count;
    int next = 0;
    bool operator()(std::vector<int>& block) {
        while (block.size() < block.capacity()) {
            if (next == count) return false;
            block.push_back(next++);
        }
        return next < count;
    }
};

TEST(BlockPipeline, EveryRecordOnceInOrderWhateverTheBlockSize) {
    for (const size_t blockSize : {size_t{1}, size_t{3}, size_t{64}, size_t{5000}}) {
        for (const int count : {0, 1, 63, 64, 65, 10007}) {
            std::vector<int> got;
            RunBlockPipeline<int>(Counter{count}, [&](int& r) { got.push_back(r); return true; }, blockSize, 2);
            ASSERT_EQ(got.size(), static_cast<size_t>(count)) << blockSize;
            for (int i = 0; i < count; ++i) ASSERT_EQ(got[static_cast<size_t>(i)], i) << blockSize;
        }
    }
}

TEST(BlockPipeline, AnEarlyStopEndsTheWorkerWithinTheBlocksInFlight) {
    // The source is endless: only the stop ends it, so a worker that ran on
    // would never be joined.
    std::atomic<long> filled{0};
    std::vector<int> got;
    RunBlockPipeline<int>(
        [&](std::vector<int>& block) {
            while (block.size() < block.capacity()) block.push_back(static_cast<int>(filled++));
            return true;
        },
        [&](int& r) {
            got.push_back(r);
            return r < 100;
        },
        16, 3);
    ASSERT_EQ(got.size(), 101u);  // 0..100: the record that says stop is taken too
    EXPECT_EQ(got.back(), 100);
    // The worker fills at most the blocks that exist, then waits for a spare one.
    EXPECT_LE(filled.load(), 16 * (7 + 3));
}

TEST(BlockPipeline, FailuresReachTheCallerAfterTheRecordsBeforeThem) {
    // A failure while filling: everything filled before it is taken first.
    std::vector<int> got;
    int next = 0;
    EXPECT_THROW(RunBlockPipeline<int>(
                     [&](std::vector<int>& block) {
                         while (block.size() < block.capacity()) {
                             if (next == 50) throw std::bad_alloc();
                             block.push_back(next++);
                         }
                         return true;
                     },
                     [&](int& r) { got.push_back(r); return true; }, 8, 2),
                 std::bad_alloc);
    ASSERT_EQ(got.size(), 48u);  // six whole blocks; the seventh never arrived
    EXPECT_EQ(got.back(), 47);

    // A failure while taking stops an endless worker and leaves the pipeline.
    int taken = 0;
    EXPECT_THROW(RunBlockPipeline<int>(
                     [](std::vector<int>& block) {
                         while (block.size() < block.capacity()) block.push_back(1);
                         return true;
                     },
                     [&](int&) {
                         if (++taken == 30) throw std::runtime_error("voll");
                         return true;
                     },
                     4, 2),
                 std::runtime_error);
    EXPECT_EQ(taken, 30);
}

}  // namespace
}  // namespace ortelix
