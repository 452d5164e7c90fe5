#include "scrolling/motion/ScrollingMotionEstimator.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "scrolling/motion/FixedBands.h"
#include "scrolling/motion/FrameDifference.h"
#include "scrolling/motion/MotionCluster.h"
#include "scrolling/motion/PhotometricCheck.h"
#include "scrolling/motion/RowFallback.h"

namespace kestrio {

namespace {

constexpr double mostIdenticalDifference = 0.5;
constexpr double mostStationaryDifference = 12;
constexpr double stationaryForCertainty = 30;
constexpr double leastOverlap = 0.05, mostOverlap = 0.95;

constexpr double fullCoverage = 0.3, coverageWeight = 0.25;
constexpr double fullInlierShare = 0.55, inlierWeight = 0.45;
constexpr double confidenceWeight = 0.2, ratioWeight = 0.1;
constexpr double leastMatchedRatio = 0.38;

int rounded(double value) {
    return static_cast<int>(std::round(value));
}

ScrollingMotionEstimate unmoved(int frameHeight) {
    ScrollingMotionEstimate estimate;
    estimate.kind = ScrollingMotionKind::stationary;
    estimate.overlapHeight = frameHeight;
    return estimate;
}

// One comparison by features.
class FeatureComparison {
  public:
    FeatureComparison(const AnalysedFrame& previous, const AnalysedFrame& current,
                      std::vector<FeatureMatch> matches, const ScrollingMotionConfig& config)
        : previous_(previous), current_(current), matches_(std::move(matches)), config_(config) {}

    void divide(MotionRange range) {
        for (const FeatureMatch& match : matches_) {
            if (match.dy >= range.least && match.dy <= range.most &&
                std::abs(match.dx) <= config_.maximumHorizontalOffset) {
                moving_.push_back(match);
            }
            if (std::abs(match.dy) <= config_.displacementTolerance &&
                std::abs(match.dx) <= config_.horizontalTolerance) {
                stationary_.push_back(match);
            }
        }
    }

    // The motion that the moving matches agree on, where it can be believed.
    std::optional<ScrollingMotionEstimate> moved() const {
        const GrayFrame& gray = current_.gray();
        const auto cluster = voteMotion(
            moving_, QSize(previous_.gray().width(), previous_.gray().height()), config_);
        if (!cluster) return std::nullopt;
        const FixedBands bands = fixedBands(cluster->dy);
        const FixedBands grayBands{rounded(bands.top / gray.sourceScaleY),
                                   rounded(bands.bottom / gray.sourceScaleY)};
        const PhotometricCheck check =
            photometricCheck(previous_.gray(), gray, cluster->dy, grayBands);
        ScrollingMotionEstimate estimate;
        estimate.method = ScrollingMotionMethod::features;
        estimate.deltaY = rounded(gray.sourceScaleY * cluster->dy);
        estimate.horizontalOffset = rounded(gray.sourceScaleX * cluster->dx);
        estimate.overlapHeight = std::max(current_.image().height() - estimate.deltaY, 0);
        estimate.confidence = confidence(*cluster, check);
        estimate.matchCount = int(matches_.size());
        estimate.inlierCount = cluster->inlierCount;
        estimate.topFixedHeight = bands.top;
        estimate.bottomFixedHeight = bands.bottom;
        if (std::abs(cluster->dx) > config_.horizontalTolerance) {
            estimate.kind = ScrollingMotionKind::horizontal;
            return estimate;
        }
        if (!isBelievable(*cluster, check, estimate.confidence)) return std::nullopt;
        estimate.kind = ScrollingMotionKind::moved;
        return estimate;
    }

    // `difference` is that of the frames as they are.
    ScrollingMotionEstimate unmovedOrRejected(double difference) const {
        ScrollingMotionEstimate estimate;
        if (int(stationary_.size()) >= config_.minimumFeatureMatches &&
            difference <= mostStationaryDifference) {
            estimate = unmoved(current_.image().height());
            estimate.method = ScrollingMotionMethod::features;
            estimate.confidence =
                std::min(double(stationary_.size()) / stationaryForCertainty, 1.0);
            estimate.inlierCount = int(stationary_.size());
            const FixedBands bands = bandsOfFeatures();
            estimate.topFixedHeight = bands.top;
            estimate.bottomFixedHeight = bands.bottom;
        }
        estimate.matchCount = int(matches_.size());
        return estimate;
    }

  private:
    FixedBands bandsOfFeatures() const {
        return fixedBandFromFeatures(stationary_, current_.features(), current_.gray(), config_);
    }

    FixedBands fixedBands(int dy) const {
        const FixedBands features = bandsOfFeatures();
        const FixedBands pixels = fixedBandFromPixels(previous_.gray(), current_.gray(), dy);
        const double scale = current_.gray().sourceScaleY;
        return {std::max(features.top, rounded(scale * pixels.top)),
                std::max(features.bottom, rounded(scale * pixels.bottom))};
    }

    double confidence(const MotionCluster& cluster, const PhotometricCheck& check) const {
        const double coveragePart = std::min(cluster.coverage / fullCoverage, 1.0) * coverageWeight;
        const double inlierShare =
            double(cluster.inlierCount) / std::max<double>(double(matches_.size()), 1);
        const double inlierPart = std::min(inlierShare / fullInlierShare, 1.0);
        return std::min(check.matchedRatio * ratioWeight + check.confidence * confidenceWeight +
                            inlierPart * inlierWeight + coveragePart,
                        1.0);
    }

    bool isBelievable(const MotionCluster& cluster, const PhotometricCheck& check,
                      double confidence) const {
        return cluster.inlierCount >= config_.minimumMovingInliers &&
               cluster.coverage >= config_.minimumMovingCoverage &&
               confidence >= config_.minimumFeatureConfidence &&
               check.confidence >= config_.minimumPhotometricConfidence &&
               check.matchedRatio >= leastMatchedRatio;
    }

    const AnalysedFrame& previous_;
    const AnalysedFrame& current_;
    const std::vector<FeatureMatch> matches_;
    const ScrollingMotionConfig& config_;
    std::vector<FeatureMatch> moving_;
    std::vector<FeatureMatch> stationary_;
};

}  // namespace

AnalysedFrame::AnalysedFrame(QImage frame, const ScrollingMotionConfig& config)
    : image_(std::move(frame)), config_(config) {
    if (!image_.isNull()) gray_ = makeGrayFrame(image_, config.maximumAnalysisWidth);
}

const std::vector<Feature>& AnalysedFrame::features() const {
    if (!features_) features_ = findFeatures(gray_, config_);
    return *features_;
}

ScrollingMotionEstimate ScrollingMotionEstimator::estimate(const QImage& previous,
                                                           const QImage& current,
                                                           std::optional<int> previousDeltaY,
                                                           double minOverlapRatio) const {
    return estimate(AnalysedFrame(previous, config_), AnalysedFrame(current, config_),
                    previousDeltaY, minOverlapRatio);
}

ScrollingMotionEstimate ScrollingMotionEstimator::estimate(const AnalysedFrame& previous,
                                                           const AnalysedFrame& current,
                                                           std::optional<int> previousDeltaY,
                                                           double minOverlapRatio) const {
    const int height = current.image().height();
    if (previous.image().size() != current.image().size() || current.image().isNull()) return {};
    if (previous.gray().pixels.bytes.empty() ||
        previous.gray().pixels.bytes.size() != current.gray().pixels.bytes.size()) {
        ScrollingMotionEstimate failed;
        failed.kind = ScrollingMotionKind::failed;
        return failed;
    }
    const double difference =
        meanFrameDifference(previous.gray(), current.gray(), 0, config_.pixelFallbackColumns);
    if (difference <= mostIdenticalDifference) {
        ScrollingMotionEstimate identical = unmoved(height);
        identical.method = ScrollingMotionMethod::identical;
        identical.confidence = 1;
        return identical;
    }
    const double overlap = std::clamp(minOverlapRatio, leastOverlap, mostOverlap);
    const GrayPair frames{previous.gray(), current.gray(), height};
    std::vector<FeatureMatch> matches =
        matchFeatures(previous.features(), current.features(), config_);
    const int matchCount = int(matches.size());
    if (matchCount < config_.minimumFeatureMatches) {
        ScrollingMotionEstimate byRows = estimateByRows(frames, previousDeltaY, overlap, config_);
        byRows.matchCount = matchCount;
        return byRows;
    }
    FeatureComparison comparison(previous, current, std::move(matches), config_);
    comparison.divide(motionRange(frames, overlap, config_));
    if (const auto moved = comparison.moved()) return *moved;
    return comparison.unmovedOrRejected(difference);
}

}  // namespace kestrio
