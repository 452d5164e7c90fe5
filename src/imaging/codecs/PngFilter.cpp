#include "imaging/codecs/PngFilter.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "core/Simd.h"

namespace kestrio {

namespace {

enum FilterType : uchar { none, sub, up, average, paeth };

// Pointers to a byte, its neighbours to the left, above and above left.
struct Neighbours {
    const uchar* here;
    const uchar* left;
    const uchar* above;
    const uchar* corner;
};

using Costs = std::array<quint32, 5>;

inline uchar distance(uchar a, uchar b) {
    return static_cast<uchar>(std::max(a, b) - std::min(a, b));
}

// The neighbour nearest to left + above - corner, in bytes alone: the errors of left and above add
// up to corner's only where both lie on the same side of it, and then corner never wins, so that
// any error not below theirs will do.
inline uchar paethPrediction(uchar left, uchar above, uchar corner) {
    const uchar leftError = distance(above, corner);
    const uchar aboveError = distance(left, corner);
    const bool between = (left > corner) != (above > corner);
    const uchar cornerError =
        between ? distance(leftError, aboveError) : std::max(leftError, aboveError);
    const uchar other = aboveError <= cornerError ? above : corner;
    return leftError <= std::min(aboveError, cornerError) ? left : other;
}

// What a filtered byte adds to a row's cost. Deflate pays little for a zero and about the same for
// every value that is not near it, hence the cap; among 1 to 128 and an entropy estimate, 8 gave
// the smallest files over screenshots, composed pictures and photographs.
inline uchar byteCost(uchar difference) {
    return std::min({difference, static_cast<uchar>(-difference), uchar(8)});
}

// Sums of 16 bits keep more lanes busy than wider ones; this many bytes cannot overflow them.
constexpr int costStep = 4096;

KESTRIO_SIMD void addCosts(const Neighbours& from, int count, Costs& costs) {
    quint16 asIs = 0, bySub = 0, byUp = 0, byAverage = 0, byPaeth = 0;
    for (int i = 0; i < count; ++i) {
        const uchar here = from.here[i], left = from.left[i];
        const uchar above = from.above[i], corner = from.corner[i];
        asIs += byteCost(here);
        bySub += byteCost(here - left);
        byUp += byteCost(here - above);
        byAverage += byteCost(here - ((left + above) >> 1));
        byPaeth += byteCost(here - paethPrediction(left, above, corner));
    }
    costs[none] += asIs;
    costs[sub] += bySub;
    costs[up] += byUp;
    costs[average] += byAverage;
    costs[paeth] += byPaeth;
}

FilterType cheapestFilter(const Neighbours& from, int count, bool withinRow) {
    Costs costs{};
    for (int first = 0; first < count; first += costStep) {
        addCosts({from.here + first, from.left + first, from.above + first, from.corner + first},
                 std::min(costStep, count - first), costs);
    }
    const auto candidates = withinRow ? costs.begin() + up : costs.end();
    const auto cheapest = std::min_element(costs.begin(), candidates);
    return static_cast<FilterType>(cheapest - costs.begin());
}

KESTRIO_SIMD void subtract(const uchar* here, const uchar* predicted, uchar* __restrict target,
                           int count) {
    for (int i = 0; i < count; ++i)
        target[i] = static_cast<uchar>(here[i] - predicted[i]);
}

// The loops copy the pointers and promise that the target is apart: otherwise the compiler expects
// a store to change them and does not vectorise.
KESTRIO_SIMD void filterAverage(const Neighbours& from, uchar* __restrict target, int count) {
    const auto [here, left, above, corner] = from;
    for (int i = 0; i < count; ++i) {
        target[i] = static_cast<uchar>(here[i] - ((left[i] + above[i]) >> 1));
    }
}

KESTRIO_SIMD void filterPaeth(const Neighbours& from, uchar* __restrict target, int count) {
    const auto [here, left, above, corner] = from;
    for (int i = 0; i < count; ++i) {
        target[i] = static_cast<uchar>(here[i] - paethPrediction(left[i], above[i], corner[i]));
    }
}

void applyFilter(FilterType type, const Neighbours& from, uchar* target, int count) {
    switch (type) {
        case none:
            std::memcpy(target, from.here, count);
            break;
        case sub:
            subtract(from.here, from.left, target, count);
            break;
        case up:
            subtract(from.here, from.above, target, count);
            break;
        case average:
            filterAverage(from, target, count);
            break;
        case paeth:
            filterPaeth(from, target, count);
            break;
    }
}

}  // namespace

PngRowFilter::PngRowFilter(int rowBytes, int pixelBytes)
    : rowBytes_(rowBytes), pixelBytes_(pixelBytes) {
    for (auto& row : rows_)
        row.resize(margin + rowBytes);
}

void PngRowFilter::filterRow(uchar* target) {
    const uchar* here = row();
    const uchar* above = rows_[current_ ^ 1].data() + margin;
    const Neighbours from{here, here - pixelBytes_, above, above - pixelBytes_};
    const FilterType type = cheapestFilter(from, rowBytes_, isFirst_);
    target[0] = type;
    applyFilter(type, from, target + 1, rowBytes_);
    current_ ^= 1;
    isFirst_ = false;
}

}  // namespace kestrio
