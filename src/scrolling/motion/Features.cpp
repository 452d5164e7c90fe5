#include "scrolling/motion/Features.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <numeric>

#include "scrolling/motion/BriefPairs.h"

namespace kestrio {

namespace {

constexpr int farthest = std::numeric_limits<int>::max();

// The pairs as distances in memory from the centre of the patch.
struct PairSteps {
    std::array<std::ptrdiff_t, briefPairCount> a, b;

    explicit PairSteps(std::ptrdiff_t stride) {
        const auto& pairs = briefPairs();
        for (int i = 0; i < briefPairCount; ++i) {
            a[i] = pairs[i].ay * stride + pairs[i].ax;
            b[i] = pairs[i].by * stride + pairs[i].bx;
        }
    }
};

std::array<std::uint64_t, 4> describe(const std::uint8_t* centre, const PairSteps& steps) {
    std::array<std::uint64_t, 4> bits{};
    for (int i = 0; i < briefPairCount; ++i)
        bits[i / 64] |= std::uint64_t(centre[steps.a[i]] < centre[steps.b[i]]) << i % 64;
    return bits;
}

int hammingDistance(const Feature& a, const Feature& b) {
    int distance = 0;
    for (std::size_t i = 0; i < a.descriptor.size(); ++i)
        distance += std::popcount(a.descriptor[i] ^ b.descriptor[i]);
    return distance;
}

struct Candidates {
    int bestIndex = -1;
    int best = farthest;
    int second = farthest;

    void consider(int index, int distance) {
        if (distance < best) {
            second = best;
            best = distance;
            bestIndex = index;
        } else if (distance < second) {
            second = distance;
        }
    }

    bool areDistinct(const ScrollingMotionConfig& config) const {
        return bestIndex >= 0 && best <= config.maximumDescriptorDistance && second != farthest &&
               best <= config.descriptorRatio * second;
    }
};

struct ClosestPrevious {
    int index = -1;
    int distance = farthest;
};

}  // namespace

std::vector<Feature> findFeatures(const GrayFrame& frame, const ScrollingMotionConfig& config) {
    const std::vector<Corner> corners = findCorners(frame, config);
    const PairSteps steps(frame.width());
    std::vector<Feature> features;
    features.reserve(corners.size());
    for (const Corner& corner : corners)
        features.push_back({corner.x, corner.y, describe(frame.row(corner.y) + corner.x, steps)});
    return features;
}

std::vector<FeatureMatch> matchFeatures(const std::vector<Feature>& previous,
                                        const std::vector<Feature>& current,
                                        const ScrollingMotionConfig& config) {
    if (previous.size() < 2 || current.size() < 2) return {};
    std::vector<int> byX(current.size());
    std::iota(byX.begin(), byX.end(), 0);
    const auto xOf = [&current](int index) { return current[index].x; };
    std::ranges::stable_sort(byX, {}, xOf);

    std::vector<Candidates> found(previous.size());
    std::vector<ClosestPrevious> closest(current.size());
    for (int i = 0; i < int(previous.size()); ++i) {
        const Feature& feature = previous[i];
        auto at =
            std::ranges::lower_bound(byX, feature.x - config.maximumHorizontalOffset, {}, xOf);
        for (; at != byX.end() && xOf(*at) <= feature.x + config.maximumHorizontalOffset; ++at) {
            const int distance = hammingDistance(feature, current[*at]);
            found[i].consider(*at, distance);
            if (distance < closest[*at].distance) closest[*at] = {i, distance};
        }
    }

    std::vector<FeatureMatch> matches;
    for (int i = 0; i < int(previous.size()); ++i) {
        const Candidates& candidates = found[i];
        if (!candidates.areDistinct(config) || closest[candidates.bestIndex].index != i) continue;
        const Feature& from = previous[i];
        const Feature& to = current[candidates.bestIndex];
        matches.push_back({i, candidates.bestIndex, candidates.best, from.x, from.y, from.x - to.x,
                           from.y - to.y});
    }
    return matches;
}

}  // namespace kestrio
