#include "scrolling/stitch/MotionRefinement.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "core/Simd.h"
#include "imaging/filters/GrayCopy.h"

namespace kestrio {

namespace {

constexpr int mostRows = 256;

KESTRIO_SIMD int rowDifference(const std::uint8_t* __restrict a, const std::uint8_t* __restrict b,
                               int count) {
    int sum = 0;
    for (int x = 0; x < count; ++x)
        sum += std::abs(int(a[x]) - int(b[x]));
    return sum;
}

double meanDifference(const GrayPixels& previous, const GrayPixels& current, int deltaY,
                      FixedBands bands) {
    const int from = bands.top;
    const int to = std::min(current.height - bands.bottom, previous.height - deltaY - bands.bottom);
    if (to <= from) return std::numeric_limits<double>::max();
    const int step = std::max((to - from) / mostRows, 1);
    double sum = 0;
    int rows = 0;
    for (int y = from; y < to; y += step, ++rows)
        sum += rowDifference(previous.row(y + deltaY), current.row(y), current.width);
    return sum / rows;
}

}  // namespace

int likeliestMotion(const QImage& previous, const QImage& current, MotionRange range,
                    FixedBands bands) {
    const GrayPixels before = grayCopy(previous, previous.rect(), previous.size());
    const GrayPixels now = grayCopy(current, current.rect(), current.size());
    const int most = std::min(range.most, current.height() - 1);
    int best = std::clamp(range.least, 1, std::max(most, 1));
    double lowest = std::numeric_limits<double>::max();
    for (int delta = std::max(range.least, 1); delta <= most; ++delta) {
        const double difference = meanDifference(before, now, delta, bands);
        if (difference >= lowest) continue;
        lowest = difference;
        best = delta;
    }
    return best;
}

}  // namespace kestrio
