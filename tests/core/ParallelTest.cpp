#include "core/Parallel.h"

#include <gtest/gtest.h>

#include <atomic>

namespace kestrio {
namespace {

TEST(Parallel, BandsCoverEveryIndexOnceWithAnyNumberOfThreads) {
    for (int threads : {1, 2, 3, 8}) {
        setParallelThreadLimit(threads);
        for (int count : {0, 1, 7, 64, 1001}) {
            std::vector<std::atomic<int>> hits(count);
            parallelBands(count, 4, [&](int first, int last) {
                for (int i = first; i < last; ++i)
                    ++hits[i];
            });
            for (const auto& hit : hits)
                EXPECT_EQ(hit, 1);
        }
    }
    setParallelThreadLimit(0);
}

TEST(Parallel, NestedCallsAndExceptionsEnd) {
    std::atomic<int> sum{0};
    parallelBands(16, 1,
                  [&](int, int) { parallelBands(100, 1, [&](int a, int b) { sum += b - a; }); });
    EXPECT_GE(sum, 100);
    EXPECT_THROW(parallelBands(100, 1, [](int, int) { throw std::runtime_error("band"); }),
                 std::runtime_error);
}

}  // namespace
}  // namespace kestrio
