#include "scrolling/stitch/SeamSearch.h"

#include <algorithm>
#include <cstdlib>

#include "imaging/filters/GrayCopy.h"

namespace kestrio {

namespace {

constexpr int rowsAboveEnd = 2;
constexpr int shortestOverlap = 5;
constexpr int overlapDivisor = 5;
constexpr int widestBand = 512;
constexpr int fewestColumns = 32;
constexpr double clearGain = 0.75;

double rowDifference(const GrayPixels& a, const GrayPixels& b, int y, int step) {
    int sum = 0, count = 0;
    for (int x = 0; x < a.width; x += step, ++count)
        sum += std::abs(int(a.row(y)[x]) - int(b.row(y)[x]));
    return double(sum) / count;
}

}  // namespace

int findSeam(const QImage& previous, const QImage& current, const SeamRequest& request) {
    const int last = std::max(request.overlap - rowsAboveEnd, 0);
    if (request.overlap < shortestOverlap || previous.width() != current.width()) return last;
    const int start = std::min(std::max({request.overlap / overlapDivisor, request.topFixed,
                                         last - std::max(request.blendHeight, 2)}),
                               last);
    const int rows = last - start + 1;
    const int previousStart = request.deltaY + start;
    if (previousStart < 0 || previousStart + rows > previous.height() ||
        current.height() < request.overlap - 1) {
        return last;
    }
    const QSize size(std::min(current.width(), widestBand), rows);
    const GrayPixels before =
        grayCopy(previous, QRect(0, previousStart, previous.width(), rows), size);
    const GrayPixels now = grayCopy(current, QRect(0, start, current.width(), rows), size);
    if (before.bytes.empty() || before.bytes.size() != now.bytes.size()) return last;
    const int step = std::max(size.width() / std::max(request.columns, fewestColumns), 1);
    int best = 0;
    double lowest = rowDifference(before, now, 0, step);
    double standard = lowest;
    for (int y = 1; y < rows; ++y) {
        standard = rowDifference(before, now, y, step);
        if (standard >= lowest) continue;
        lowest = standard;
        best = y;
    }
    return standard <= lowest + clearGain ? last : start + best;
}

}  // namespace kestrio
