#include "scrolling/motion/MotionCluster.h"

#include <algorithm>
#include <bitset>
#include <cstdlib>

namespace kestrio {

namespace {

constexpr int gridSide = 6;
constexpr int gridCells = gridSide * gridSide;
constexpr double scorePerInlier = 0.7;

struct Motion {
    int dx = 0, dy = 0;

    bool operator==(const Motion&) const = default;
};

void collectInliers(const std::vector<FeatureMatch>& matches, Motion motion,
                    const ScrollingMotionConfig& config,
                    std::vector<const FeatureMatch*>& inliers) {
    inliers.clear();
    for (const FeatureMatch& match : matches) {
        if (std::abs(match.dy - motion.dy) <= config.displacementTolerance &&
            std::abs(match.dx - motion.dx) <= config.horizontalTolerance) {
            inliers.push_back(&match);
        }
    }
}

int median(const std::vector<const FeatureMatch*>& matches, int FeatureMatch::*field,
           std::vector<int>& values) {
    values.clear();
    for (const FeatureMatch* match : matches)
        values.push_back(match->*field);
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

double coverage(const std::vector<const FeatureMatch*>& matches, QSize frame) {
    std::bitset<gridCells> cells;
    for (const FeatureMatch* match : matches) {
        const int column = std::clamp(match->previousX * gridSide / frame.width(), 0, gridSide - 1);
        const int row = std::clamp(match->previousY * gridSide / frame.height(), 0, gridSide - 1);
        cells.set(std::size_t(row) * gridSide + std::size_t(column));
    }
    return double(cells.count()) / gridCells;
}

}  // namespace

std::optional<MotionCluster> voteMotion(const std::vector<FeatureMatch>& matches, QSize frame,
                                        const ScrollingMotionConfig& config) {
    if (matches.empty() || int(matches.size()) < config.minimumMovingInliers) return std::nullopt;
    std::optional<MotionCluster> best;
    double bestScore = 0;
    std::vector<const FeatureMatch*> inliers;
    std::vector<int> values;
    std::vector<Motion> tried;  // seeds of one motion have one outcome, and the first of them wins
    for (const FeatureMatch& seed : matches) {
        const Motion start{seed.dx, seed.dy};
        if (std::ranges::find(tried, start) != tried.end()) continue;
        tried.push_back(start);
        collectInliers(matches, start, config, inliers);
        if (int(inliers.size()) < config.minimumMovingInliers) continue;
        const Motion centre{median(inliers, &FeatureMatch::dx, values),
                            median(inliers, &FeatureMatch::dy, values)};
        collectInliers(matches, centre, config, inliers);
        if (inliers.empty()) continue;
        const MotionCluster cluster{median(inliers, &FeatureMatch::dx, values),
                                    median(inliers, &FeatureMatch::dy, values), int(inliers.size()),
                                    coverage(inliers, frame)};
        const double score =
            (std::min(cluster.coverage, 1.0) + scorePerInlier) * cluster.inlierCount;
        if (score <= bestScore) continue;
        bestScore = score;
        best = cluster;
    }
    return best;
}

}  // namespace kestrio
