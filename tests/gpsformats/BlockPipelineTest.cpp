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

// Fills blocks of `size` with 0, 1, 2, ... up to `count` (exclusive),
// overwriting what the block held.
struct Counter {
    size_t size;
    int count;
    int next = 0;
    bool operator()(std::vector<int>& block) {
        block.resize(size);
        size_t n = 0;
        while (n < size && next < count) block[n++] = next++;
        block.resize(n);
        return next < count;
    }
};

// An endless source of blocks of `size` ones; counts what it filled.
struct Ones {
    size_t size;
    std::atomic<long>& filled;
    bool operator()(std::vector<int>& block) {
        block.assign(size, 1);
        filled += static_cast<long>(size);
        return true;
    }
};

TEST(BlockPipeline, EveryRecordOnceInOrderWhateverTheBlockSize) {
    for (const size_t blockSize : {size_t{1}, size_t{3}, size_t{64}, size_t{5000}}) {
        for (const int count : {0, 1, 63, 64, 65, 10007}) {
            std::vector<int> got;
            RunBlockPipeline<int>(Counter{blockSize, count}, [&](int& r) { got.push_back(r); return true; }, 2);
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
    int seen = 0;
    RunBlockPipeline<int>(Ones{16, filled},
                          [&](int& r) {
                              got.push_back(seen++ * r);
                              return seen <= 100;
                          },
                          3);
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
                         block.resize(8);
                         for (int& r : block) {
                             if (next == 50) throw std::bad_alloc();
                             r = next++;
                         }
                         return true;
                     },
                     [&](int& r) { got.push_back(r); return true; }, 2),
                 std::bad_alloc);
    ASSERT_EQ(got.size(), 48u);  // six whole blocks; the seventh never arrived
    EXPECT_EQ(got.back(), 47);

    // A failure while taking stops an endless worker and leaves the pipeline.
    std::atomic<long> filled{0};
    int taken = 0;
    EXPECT_THROW(RunBlockPipeline<int>(Ones{4, filled},
                                       [&](int&) {
                                           if (++taken == 30) throw std::runtime_error("voll");
                                           return true;
                                       },
                                       2),
                 std::runtime_error);
    EXPECT_EQ(taken, 30);
}

}  // namespace
}  // namespace ortelix
