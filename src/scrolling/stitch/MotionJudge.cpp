#include "scrolling/stitch/MotionJudge.h"

#include <algorithm>
#include <cmath>

#include "scrolling/motion/ExactMotion.h"
#include "scrolling/stitch/MotionRefinement.h"

namespace kestrio {

namespace {

using Kind = JudgedMotion::Kind;
using Verdict = ExactMotion::Verdict;

// The share of the evidence that a motion needs which the estimator found too, and below which the
// content is taken for one that is never the same bit for bit.
constexpr int insetDivisor = 4;  // the part of a frame that an estimated band takes at most
constexpr double confirmedShare = 0.65, inexactShare = 0.3;

JudgedMotion refused(ScrollingStitchDisposition disposition, StitchObstacle obstacle) {
    JudgedMotion motion;
    motion.disposition = disposition;
    motion.obstacle = obstacle;
    return motion;
}

JudgedMotion unmoved(Kind kind, double confidence) {
    JudgedMotion motion;
    motion.kind = kind;
    motion.confidence = confidence;
    return motion;
}

ScrollingStitchDisposition dispositionOf(ScrollingMotionKind kind) {
    switch (kind) {
        case ScrollingMotionKind::failed:
            return ScrollingStitchDisposition::matchFailed;
        case ScrollingMotionKind::horizontal:
            return ScrollingStitchDisposition::horizontalMotion;
        case ScrollingMotionKind::moved:
        case ScrollingMotionKind::stationary:
        case ScrollingMotionKind::rejected:
            break;
    }
    return ScrollingStitchDisposition::discontinuity;
}

// One decision.
class Judgement {
  public:
    Judgement(const JudgedFrames& frames, const MotionHistory& history, int mostMotion)
        : frames_(frames),
          history_(history),
          rows_(frames.reference.signature, frames.current.signature),
          exact_(rows_.search(mostMotion, 0)) {
        if (exact_.verdict != Verdict::unknown) return;
        const ExactMotion either = rows_.search(mostMotion, mostMotion);
        if (either.verdict == Verdict::moved && either.deltaY < 0) exact_ = either;
    }

    // For frames that look the same at a glance.
    JudgedMotion ofAlike(double similarity) const {
        return unmovedUnlessKnown(Kind::duplicate, similarity);
    }

    JudgedMotion of(const ScrollingMotionEstimate& estimate) const {
        switch (estimate.kind) {
            case ScrollingMotionKind::moved:
                return ofMoved(estimate);
            case ScrollingMotionKind::stationary: {
                const bool isSame = estimate.method == ScrollingMotionMethod::identical;
                return unmovedUnlessKnown(isSame ? Kind::duplicate : Kind::still,
                                          estimate.confidence);
            }
            case ScrollingMotionKind::failed:
            case ScrollingMotionKind::rejected:
            case ScrollingMotionKind::horizontal:
                break;
        }
        JudgedMotion motion = refused(dispositionOf(estimate.kind), StitchObstacle::none);
        motion.confidence = estimate.confidence;
        motion.horizontalOffset = estimate.horizontalOffset;
        return exactly().value_or(motion);
    }

  private:
    JudgedMotion moved(int deltaY) const {
        JudgedMotion motion;
        motion.kind = Kind::moved;
        motion.deltaY = deltaY;
        motion.isExact = true;
        motion.exactBands = rows_.fixedBands(deltaY);
        motion.bands = motion.exactBands.bands;
        motion.confidence = rows_.evidence(deltaY, motion.bands).share();
        return motion;
    }

    // What the rows alone say; nothing where they do not tell a motion.
    std::optional<JudgedMotion> exactly() const {
        switch (exact_.verdict) {
            case Verdict::moved:
                if (!exact_.isDistinct && !history_.isConsecutive) return ambiguous();
                return exact_.deltaY > 0 ? moved(exact_.deltaY) : movedBack();
            case Verdict::ambiguous:
                return ambiguous();
            case Verdict::still:
            case Verdict::unknown:
                break;
        }
        return std::nullopt;
    }

    JudgedMotion unmovedUnlessKnown(Kind kind, double confidence) const {
        if (const auto known = exactly()) return *known;
        return rows_.isMostlyStill() ? unmoved(kind, confidence) : contradictory();
    }

    JudgedMotion movedBack() const {
        JudgedMotion motion =
            refused(ScrollingStitchDisposition::discontinuity, StitchObstacle::movedBack);
        motion.deltaY = exact_.deltaY;
        return motion;
    }

    // The rhythm so far decides, where it can.
    JudgedMotion ambiguous() const {
        const int expected = history_.previousDeltaY.value_or(0);
        const auto& all = exact_.alternatives;
        const bool isPossible = std::ranges::find(all, expected) != all.end();
        if (isPossible && history_.isConsecutive &&
            (history_.isSteady || expected == exact_.deltaY)) {
            return moved(expected);
        }
        return refused(ScrollingStitchDisposition::discontinuity, StitchObstacle::ambiguous);
    }

    JudgedMotion ofMoved(const ScrollingMotionEstimate& estimate) const {
        const double scale = frames_.current.analysed.gray().sourceScaleY;
        const int tolerance = static_cast<int>(std::ceil(scale)) + 1;
        const MotionRange near{estimate.deltaY - tolerance, estimate.deltaY + tolerance};
        const std::optional<int> refined = rows_.bestWithin(near);
        switch (exact_.verdict) {
            case Verdict::moved:
                return *exactly();
            case Verdict::ambiguous:
                return ambiguous();
            case Verdict::still:
            case Verdict::unknown:
                break;
        }
        if (!refined) return byLikeness(estimate, near);
        if (isConfirmed(*refined)) return moved(*refined);
        const bool isInexact = rows_.evidence(*refined).share() < inexactShare;
        return isInexact ? byLikeness(estimate, near) : contradictory();
    }

    static JudgedMotion contradictory() {
        return refused(ScrollingStitchDisposition::discontinuity, StitchObstacle::contradictory);
    }

    bool isConfirmed(int deltaY) const { return moved(deltaY).confidence >= confirmedShare; }

    // The estimate as it is, made as exact as pixels allow that are never quite the same.
    JudgedMotion byLikeness(const ScrollingMotionEstimate& estimate, MotionRange near) const {
        if (!rows_.hasContent(std::min(estimate.deltaY, frames_.current.image().height() - 1)))
            return refused(ScrollingStitchDisposition::discontinuity, StitchObstacle::noEvidence);
        if (history_.isExact || exact_.hasExactRows || rows_.isMostlyStill())
            return contradictory();
        JudgedMotion motion;
        motion.kind = Kind::moved;
        const int height = frames_.current.image().height();
        motion.bands = {estimate.topFixedHeight,
                        std::min(estimate.bottomFixedHeight, height / insetDivisor)};
        motion.exactBands.bottomLimit = height;
        motion.deltaY =
            likeliestMotion(frames_.last.image(), frames_.current.image(), near, motion.bands);
        motion.confidence = estimate.confidence;
        motion.horizontalOffset = estimate.horizontalOffset;
        return motion;
    }

    const JudgedFrames& frames_;
    const MotionHistory& history_;
    const ExactComparison rows_;
    ExactMotion exact_;
};

}  // namespace

MotionJudge::MotionJudge(ScrollingMotionEstimator estimator, double minOverlapRatio,
                         double duplicateSimilarity)
    : estimator_(std::move(estimator)),
      minOverlapRatio_(minOverlapRatio),
      duplicateSimilarity_(duplicateSimilarity) {}

JudgedMotion MotionJudge::judge(const JudgedFrames& frames, const MotionHistory& history) const {
    const QImage& image = frames.current.image();
    if (image == frames.last.image()) return unmoved(Kind::duplicate, 1);
    const int mostMotion = static_cast<int>((1 - minOverlapRatio_) * image.height());
    const Judgement judgement(frames, history, mostMotion);
    const double similarity = frameSimilarity(frames.last.thumbnail, frames.current.thumbnail);
    if (similarity >= duplicateSimilarity_) return judgement.ofAlike(similarity);
    return judgement.of(estimator_.estimate(frames.last.analysed, frames.current.analysed,
                                            history.previousDeltaY, minOverlapRatio_));
}

}  // namespace kestrio
