#pragma once

#include <functional>

namespace kestrio {

/// Calls `work(first, last)` for consecutive bands that together cover [0, count), on the calling
/// thread and idle threads of the shared pool, and returns when all are done. Bands are at least
/// `minimumBand` long. What the bands compute must not depend on where they are cut: then results
/// are the same with any number of threads. The first exception of a band is rethrown.
///
/// Bands may capture plain numbers, pointers to pixels that they alone write, and containers that
/// nobody changes. They must not share Qt's drawing types (QPainterPath, QFont, QTextLayout, QPen,
/// QBrush, QRegion, a painter or what it paints on), not even as constants and not as copies, which
/// share their data: these fill caches inside const calls. Each band gets a deep copy made before,
/// or makes its own from plain values. QImage::bits() and scanLine() detach, so they are called
/// before the bands too.
void parallelBands(int count, int minimumBand,
                   const std::function<void(int first, int last)>& work);

/// Limits parallelBands() to this many threads, the caller included; 0 lifts the limit.
void setParallelThreadLimit(int threads);

/// How many threads parallelBands() uses at most, at least 1.
int parallelThreads();

}  // namespace kestrio
