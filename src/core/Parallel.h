#pragma once

#include <functional>

namespace kestrio {

/// Calls `work(first, last)` for consecutive bands that together cover [0, count), on the calling
/// thread and idle threads of the shared pool, and returns when all are done. Bands are at least
/// `minimumBand` long. What the bands compute must not depend on where they are cut: then results
/// are the same with any number of threads. The first exception of a band is rethrown.
void parallelBands(int count, int minimumBand,
                   const std::function<void(int first, int last)>& work);

/// Limits parallelBands() to this many threads, the caller included; 0 lifts the limit.
void setParallelThreadLimit(int threads);

/// How many threads parallelBands() uses at most, at least 1.
int parallelThreads();

}  // namespace kestrio
