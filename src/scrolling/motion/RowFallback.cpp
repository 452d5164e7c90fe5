#include "scrolling/motion/RowFallback.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/Parallel.h"
#include "scrolling/motion/FrameDifference.h"

namespace kestrio {

namespace {

constexpr int lowFrame = 96;
constexpr int windowOfLowFrame = 24, windowDivisor = 4;
constexpr int agreementOfLowFrame = 8, agreementDivisor = 12;
constexpr double tie = 1e-9;
constexpr double similarityRange = 64;
constexpr double fullMargin = 0.12;
constexpr double similarityWeight = 0.78, marginWeight = 0.22;
constexpr double leastConfidence = 0.62;
constexpr double leastMargin = 0.015;
constexpr double mostStationaryDifference = 10;

struct Candidate {
    int delta = 0;
    double score = 0;
};

std::vector<Candidate> scoredCandidates(const GrayPair& frames, MotionRange range,
                                        RowSampling sampling) {
    std::vector<Candidate> candidates(range.most - range.least + 1);
    parallelBands(int(candidates.size()), 64, [&](int first, int last) {
        for (int i = first; i < last; ++i) {
            const int delta = range.least + i;
            candidates[i] = {
                delta, trimmedRowDifference(frames.previous, frames.current, delta, sampling)};
        }
    });
    return candidates;
}

// Whether `a` is the better candidate. Scores that are as good as equal go by the distance from
// what is expected, else by the smaller motion.
bool isBetter(const Candidate& a, const Candidate& b, std::optional<int> prediction) {
    if (std::abs(a.score - b.score) > tie) return a.score < b.score;
    if (!prediction) return a.delta < b.delta;
    return std::abs(a.delta - *prediction) < std::abs(b.delta - *prediction);
}

Candidate bestOf(const std::vector<Candidate>& candidates, std::optional<int> prediction) {
    Candidate best = candidates.front();
    for (const Candidate& candidate : candidates)
        if (isBetter(candidate, best, prediction)) best = candidate;
    return best;
}

// By how much the best candidate beats all that are not its neighbours, 0 to 1.
double marginOf(const Candidate& best, const std::vector<Candidate>& candidates, int separation) {
    std::optional<double> rival;
    for (const Candidate& candidate : candidates) {
        if (std::abs(candidate.delta - best.delta) <= separation) continue;
        if (!rival || candidate.score < *rival) rival = candidate.score;
    }
    if (!rival) return 1;
    const double margin = *rival - best.score;
    return std::max(*rival > 1 ? margin / *rival : margin, 0.0);
}

ScrollingMotionEstimate unmoved(const GrayPair& frames, int sampledColumns) {
    ScrollingMotionEstimate estimate;
    const double difference =
        meanFrameDifference(frames.previous, frames.current, 0, sampledColumns);
    estimate.kind = ScrollingMotionKind::failed;
    if (difference > mostStationaryDifference) return estimate;
    estimate.kind = ScrollingMotionKind::stationary;
    estimate.method = ScrollingMotionMethod::pixels;
    estimate.overlapHeight = frames.frameHeight;
    estimate.confidence = std::max(1 - difference / similarityRange, 0.0);
    return estimate;
}

}  // namespace

MotionRange motionRange(const GrayPair& frames, double minOverlapRatio,
                        const ScrollingMotionConfig& config) {
    const double scale = frames.current.sourceScaleY;
    const int least = std::max(config.minimumMotionPixels,
                               static_cast<int>(std::round(config.minimumMotionPixels / scale)));
    const int most = static_cast<int>((1 - minOverlapRatio) * frames.current.height());
    return {least, std::max(least, most)};
}

ScrollingMotionEstimate estimateByRows(const GrayPair& frames, std::optional<int> previousDeltaY,
                                       double minOverlapRatio,
                                       const ScrollingMotionConfig& config) {
    const double scale = frames.current.sourceScaleY;
    const int height = frames.current.height();
    const bool isLow = height < lowFrame;
    MotionRange range = motionRange(frames, minOverlapRatio, config);
    std::optional<int> prediction;
    if (previousDeltaY && *previousDeltaY > 0) {
        prediction = static_cast<int>(std::round(*previousDeltaY / scale));
        const int window = isLow ? windowOfLowFrame : height / windowDivisor;
        range.least = std::max(*prediction - window, range.least);
        range.most = std::min(*prediction + window, range.most);
    }
    ScrollingMotionEstimate estimate;
    estimate.kind = ScrollingMotionKind::failed;
    if (range.most < range.least) return estimate;

    const RowSampling sampling{config.pixelFallbackRows, config.pixelFallbackColumns};
    const std::vector<Candidate> candidates = scoredCandidates(frames, range, sampling);
    const Candidate best = bestOf(candidates, prediction);
    const double margin = marginOf(best, candidates, config.displacementTolerance);
    const double similarity = std::max(1 - best.score / similarityRange, 0.0);
    const double confidence = std::min(
        similarity * similarityWeight + std::min(margin / fullMargin, 1.0) * marginWeight, 1.0);
    const int agreement = isLow ? agreementOfLowFrame : height / agreementDivisor;
    const bool predictionAgrees = prediction && std::abs(best.delta - *prediction) <= agreement;
    if (similarity < config.minimumPhotometricConfidence || confidence < leastConfidence ||
        (margin < leastMargin && !predictionAgrees)) {
        return unmoved(frames, config.pixelFallbackColumns);
    }
    estimate.kind = ScrollingMotionKind::moved;
    estimate.method = ScrollingMotionMethod::pixels;
    estimate.deltaY = static_cast<int>(std::round(scale * best.delta));
    estimate.overlapHeight = std::max(frames.frameHeight - estimate.deltaY, 0);
    estimate.confidence = confidence;
    return estimate;
}

}  // namespace kestrio
