#include "scrolling/motion/FixedBands.h"

#include <algorithm>
#include <bitset>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace kestrio {

namespace {

constexpr int fewestFeatures = 4;
constexpr int widthBins = 8;
constexpr std::size_t fewestBins = 3;
constexpr int bandPadding = 4;
constexpr double topShare = 0.35;
constexpr double bottomShare = 0.65;
constexpr double tallestShare = 0.25;

constexpr int sampledColumns = 96;
constexpr double leastVariance = 30;
constexpr double mostSamePlaceDifference = 4;
constexpr double leastAdvantage = 7;
constexpr int fewestRows = 3;

using Features = std::vector<const Feature*>;

bool isBand(const Features& features, int width) {
    if (int(features.size()) < fewestFeatures) return false;
    std::bitset<widthBins> bins;
    for (const Feature* feature : features)
        bins.set(std::size_t(std::clamp(feature->x * widthBins / width, 0, widthBins - 1)));
    return bins.count() >= fewestBins;
}

// How one row of the current frame compares with the previous one.
struct RowEvidence {
    double variance = 0;
    double samePlace = 0;
    std::optional<double> shifted;  // absent where the row would have come from outside

    bool isFixed() const {
        return variance >= leastVariance && samePlace <= mostSamePlaceDifference &&
               (!shifted || samePlace + leastAdvantage <= *shifted);
    }
};

RowEvidence rowEvidence(const GrayFrame& previous, const GrayFrame& current, int y, int dy) {
    const int step = current.width() < sampledColumns ? 1 : current.width() / sampledColumns;
    const std::uint8_t* row = current.row(y);
    const std::uint8_t* before = previous.row(y);
    const bool isInside = y + dy < current.height();
    const std::uint8_t* origin = isInside ? previous.row(y + dy) : nullptr;
    double sum = 0, squares = 0, samePlace = 0, shifted = 0;
    int count = 0;
    for (int x = 0; x < current.width(); x += step, ++count) {
        const double value = row[x];
        sum += value;
        squares += value * value;
        samePlace += std::abs(before[x] - value);
        if (origin) shifted += std::abs(origin[x] - value);
    }
    const double mean = sum / count;
    RowEvidence evidence{squares / count - mean * mean, samePlace / count, std::nullopt};
    if (isInside) evidence.shifted = shifted / count;
    return evidence;
}

}  // namespace

FixedBands fixedBandFromFeatures(const std::vector<FeatureMatch>& stationary,
                                 const std::vector<Feature>& current, const GrayFrame& frame,
                                 const ScrollingMotionConfig& config) {
    const int width = frame.width(), height = frame.height();
    if (int(stationary.size()) < fewestFeatures || width < 1 || height < 1) return {};
    Features top, bottom;
    for (const FeatureMatch& match : stationary) {
        const Feature* feature = &current[match.currentIndex];
        if (feature->y < static_cast<int>(topShare * height)) top.push_back(feature);
        if (feature->y > static_cast<int>(bottomShare * height)) bottom.push_back(feature);
    }
    const int padding = config.briefRadius + bandPadding;
    const int tallest = static_cast<int>(height * tallestShare);
    const auto inFramePixels = [&](int rows) {
        return static_cast<int>(std::round(frame.sourceScaleY * std::min(rows, tallest)));
    };
    FixedBands bands;
    if (isBand(top, width)) {
        const Feature* lowest = *std::ranges::max_element(top, {}, &Feature::y);
        bands.top = inFramePixels(lowest->y + padding);
    }
    if (isBand(bottom, width)) {
        const Feature* highest = *std::ranges::min_element(bottom, {}, &Feature::y);
        bands.bottom = inFramePixels(height - highest->y + padding);
    }
    return bands;
}

FixedBands fixedBandFromPixels(const GrayFrame& previous, const GrayFrame& current, int dy) {
    const int height = current.height();
    if (previous.width() != current.width() || previous.height() != height || dy < 1) return {};
    const int limit = std::min(std::max(height, 4) / 4, height);
    const auto isFixed = [&](int y) { return rowEvidence(previous, current, y, dy).isFixed(); };
    FixedBands bands;
    int count = 0, lowest = 0;
    for (int y = 0; y < limit; ++y) {
        if (!isFixed(y)) continue;
        ++count;
        lowest = y;
    }
    if (count >= fewestRows) bands.top = std::min(lowest + bandPadding, limit);
    count = 0;
    int highest = height;
    for (int y = height - 1; y >= std::max(height - limit, 0); --y) {
        if (!isFixed(y)) continue;
        ++count;
        highest = y;
    }
    if (count >= fewestRows) bands.bottom = std::min(height - highest + bandPadding, limit);
    return bands;
}

}  // namespace kestrio
