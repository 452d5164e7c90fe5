#include "scrolling/stitch/ScrollingStitchEngine.h"

#include <algorithm>

#include "scrolling/motion/ExactMotion.h"
#include "scrolling/stitch/LongImage.h"
#include "scrolling/stitch/SeamSearch.h"

namespace kestrio {

namespace {

using Disposition = ScrollingStitchDisposition;

constexpr int pixelBytes = 4;
constexpr int fewestSampledRows = 4;
constexpr int fewestSampledColumns = 16;

ScrollingMotionEstimator estimatorFor(const ScrollingStitchConfig& config) {
    ScrollingMotionConfig motion;
    motion.pixelFallbackRows = std::max(config.sampleRows, fewestSampledRows);
    motion.pixelFallbackColumns = std::max(config.sampleColumnTarget, fewestSampledColumns);
    return ScrollingMotionEstimator(motion);
}

SegmentCompression compressionOf(const ScrollingStitchConfig& config) {
    return config.compressSegments ? SegmentCompression::png : SegmentCompression::none;
}

}  // namespace

ScrollingStitchEngine::ScrollingStitchEngine(Config config)
    : ScrollingStitchEngine(config, estimatorFor(config)) {}

ScrollingStitchEngine::ScrollingStitchEngine(Config config, ScrollingMotionEstimator estimator)
    : config_(config),
      judge_(std::move(estimator), config.minOverlapRatio, config.duplicateSimilarity),
      content_(compressionOf(config)) {}

void ScrollingStitchEngine::reset() {
    *this = ScrollingStitchEngine(config_, judge_.estimator());
}

qint64 ScrollingStitchEngine::retainedStorageBytes() const {
    qint64 bytes = content_.byteCount();
    if (footer_) bytes += footer_->storage.byteCount();
    if (lastFrame_) bytes += lastFrame_->image().sizeInBytes();
    if (reference_ && reference_ != lastFrame_) bytes += reference_->image().sizeInBytes();
    return bytes;
}

bool ScrollingStitchEngine::fits(int rows) const {
    return width_ > 0 && rows > 0 &&
           config_.maximumOutputBytes / (qint64(pixelBytes) * width_) >= rows;
}

ScrollingStitchOutcome ScrollingStitchEngine::outcome(Disposition disposition,
                                                      double confidence) const {
    ScrollingStitchOutcome outcome;
    outcome.disposition = disposition;
    outcome.confidence = confidence;
    outcome.reachedBottom = hasReachedBottom_;
    outcome.totalHeightPixels = totalHeight();
    outcome.acceptedFrameCount = contributedFrameCount_;
    outcome.consecutiveFailureCount = matchFailureCount_;
    return outcome;
}

StitchFramePtr ScrollingStitchEngine::analysed(const QImage& image) const {
    return std::make_shared<StitchFrame>(image, judge_.estimator().config());
}

ScrollingStitchOutcome ScrollingStitchEngine::ingest(const QImage& image) {
    if (image.isNull()) return outcome(Disposition::matchFailed, 0);
    if (!lastFrame_) return seed(analysed(image));
    if (image.size() != lastFrame_->image().size()) return refuseSize();
    const StitchFramePtr frame = analysed(image);
    const JudgedMotion motion = judge_.judge({*reference_, *lastFrame_, *frame}, history_);
    switch (motion.kind) {
        case JudgedMotion::Kind::moved:
            return append(frame, motion);
        case JudgedMotion::Kind::still:
        case JudgedMotion::Kind::duplicate:
            return keepStill(frame, motion);
        case JudgedMotion::Kind::refused:
            break;
    }
    return refuse(motion);
}

ScrollingStitchOutcome ScrollingStitchEngine::ingestAsBreak(const QImage& image) {
    if (image.isNull()) return outcome(Disposition::matchFailed, 0);
    if (!lastFrame_) return seed(analysed(image));
    if (image.size() != lastFrame_->image().size()) return refuseSize();
    settle();
    restoreFooterUnlessShown(image);
    Join join{analysed(image), {}};
    join.motion.deltaY = image.height();
    join.inset = fixedBottomInset_;
    join.usable = image.height() - join.inset;
    const ScrollingStitchOutcome added = commit(join);
    history_ = {};
    return added;
}

// What was kept apart belongs to the rows above a break, unless it is a bar that stands there
// still.
void ScrollingStitchEngine::restoreFooterUnlessShown(const QImage& frame) {
    if (!footer_) return;
    const auto bottom = makeSegment(frame, frame.height() - footer_->height, footer_->height);
    if (bottom && bottom->storage.decoded() == footer_->storage.decoded()) return;
    content_.append(std::move(*footer_));
    footer_.reset();
    fixedBottomInset_ = 0;
}

ScrollingStitchOutcome ScrollingStitchEngine::refuseSize() {
    ++matchFailureCount_;
    ScrollingStitchOutcome refusal = outcome(Disposition::discontinuity, 0);
    refusal.obstacle = StitchObstacle::otherSize;
    return refusal;
}

ScrollingStitchOutcome ScrollingStitchEngine::seed(const StitchFramePtr& frame) {
    const QImage& image = frame->image();
    width_ = image.width();
    if (!fits(image.height())) {
        width_ = 0;
        return outcome(Disposition::outputLimitReached, 1);
    }
    auto segment = makeSegment(image, 0, image.height());
    if (!segment) return outcome(Disposition::matchFailed, 0);
    content_.append(std::move(*segment));
    contributedFrameCount_ = 1;
    reference_ = lastFrame_ = frame;
    ScrollingStitchOutcome seeded = outcome(Disposition::seeded, 1);
    seeded.appended = true;
    seeded.addedHeightPixels = image.height();
    return seeded;
}

ScrollingStitchOutcome ScrollingStitchEngine::noProgress(bool isDuplicate, double confidence) {
    matchFailureCount_ = 0;
    if (++noProgressCount_ >= config_.bottomRepeatThreshold) hasReachedBottom_ = true;
    ScrollingStitchOutcome still =
        outcome(isDuplicate ? Disposition::duplicate : Disposition::noMotion, confidence);
    still.duplicate = isDuplicate;
    return still;
}

ScrollingStitchOutcome ScrollingStitchEngine::keepStill(const StitchFramePtr& frame,
                                                        const JudgedMotion& motion) {
    // The frame shows the content where the last one does, so it takes its place: what changes
    // slowly never adds up.
    lastFrame_ = frame;
    pending_.reset();
    history_.isConsecutive = true;
    if (fixedBottomInset_ > 0) refreshFooter(frame->image());
    return noProgress(motion.kind == JudgedMotion::Kind::duplicate, motion.confidence);
}

void ScrollingStitchEngine::refreshFooter(const QImage& frame) {
    auto footer = makeSegment(frame, frame.height() - fixedBottomInset_, fixedBottomInset_);
    if (footer) footer_ = std::move(footer);
}

ScrollingStitchOutcome ScrollingStitchEngine::refuse(const JudgedMotion& motion) {
    StitchObstacle obstacle = motion.obstacle;
    const int rowsAbove = content_.height() + fixedBottomInset_ - lastFrame_->image().height();
    if (obstacle == StitchObstacle::movedBack && -motion.deltaY > rowsAbove)
        obstacle = StitchObstacle::aboveStart;
    // Frames that show what is known already, or what may become clear further down, are no
    // failures that add up.
    const bool isPassing = obstacle == StitchObstacle::movedBack ||
                           obstacle == StitchObstacle::aboveStart ||
                           obstacle == StitchObstacle::ambiguous;
    if (!isPassing) ++matchFailureCount_;
    history_.isConsecutive = false;
    ScrollingStitchOutcome refusal = outcome(motion.disposition, motion.confidence);
    refusal.horizontalOffsetPixels = motion.horizontalOffset;
    refusal.motionPixels = motion.deltaY;
    refusal.obstacle = obstacle;
    return refusal;
}

ScrollingStitchEngine::Join ScrollingStitchEngine::prepare(const StitchFramePtr& frame,
                                                           const JudgedMotion& motion) const {
    // Rows above a button that floats over the content are as good as any, as long as the frames
    // have enough of them in common.
    const int bar = motion.bands.bottom;
    Join join = prepareAbove(frame, motion, std::max(bar, motion.exactBands.widgets));
    if (join.isGap) join = prepareAbove(frame, motion, bar);
    if (join.isGap) join = prepareRestored(frame, motion, bar);
    join.seam = seamOf(join);
    const int growth = std::max(join.inset - fixedBottomInset_, 0);
    join.trim =
        growth + std::clamp(join.overlap - join.seam, 0, std::max(content_.height() - growth, 0));
    return join;
}

// Without its seam. `bottom` is what must be kept apart of the frame.
ScrollingStitchEngine::Join ScrollingStitchEngine::prepareAbove(const StitchFramePtr& frame,
                                                                const JudgedMotion& motion,
                                                                int bottom) const {
    const int height = frame->image().height();
    Join join{frame, motion};
    // A band that was taken for too tall shrinks to what stays, and one that is new grows it.
    join.inset = std::max(std::min(fixedBottomInset_, motion.exactBands.bottomLimit), bottom);
    join.usable = std::max(height - join.inset, 1);
    const int known = height - motion.deltaY - std::max(join.inset, fixedBottomInset_);
    join.isGap = known < motion.bands.top;
    join.overlap = std::clamp(known, 0, join.usable);
    return join;
}

// With rows of the last frame that were kept apart although they are no bar's.
ScrollingStitchEngine::Join ScrollingStitchEngine::prepareRestored(const StitchFramePtr& frame,
                                                                   const JudgedMotion& motion,
                                                                   int bar) const {
    const int height = frame->image().height();
    const int kept = std::min(fixedBottomInset_, std::max(motion.exactBands.bottomLimit, bar));
    Join join = prepareAbove(frame, motion, bar);
    join.restored = fixedBottomInset_ - kept;
    const int known = height - motion.deltaY - std::max(join.inset, kept);
    join.isGap = known < motion.bands.top;
    join.overlap = std::clamp(known, 0, join.usable);
    return join;
}

int ScrollingStitchEngine::seamOf(const Join& join) const {
    const JudgedMotion& motion = join.motion;
    const int seam = findSeam(lastFrame_->image(), join.frame->image(),
                              {motion.deltaY, join.overlap, motion.bands.top,
                               config_.blendHeightPixels, config_.sampleColumnTarget});
    const int belowHeader = std::min(std::max(seam, motion.bands.top), join.overlap);
    if (!motion.isExact) return belowHeader;
    const ExactComparison rows(lastFrame_->signature, join.frame->signature);
    return rows.firstSoundRow(motion.deltaY, belowHeader, join.overlap);
}

ScrollingStitchOutcome ScrollingStitchEngine::append(const StitchFramePtr& frame,
                                                     const JudgedMotion& motion) {
    Join join = prepare(frame, motion);
    if (join.isGap) {
        JudgedMotion gap = motion;
        gap.disposition = Disposition::discontinuity;
        gap.obstacle = StitchObstacle::gap;
        return refuse(gap);
    }
    if (motion.deltaY <= config_.minNewContentPixels) {
        pending_ = std::move(join);
        ScrollingStitchOutcome still = noProgress(false, motion.confidence);
        still.motionPixels = motion.deltaY;
        return still;
    }
    return commit(join);
}

ScrollingStitchOutcome ScrollingStitchEngine::commit(const Join& join) {
    const QImage& image = join.frame->image();
    const int before = totalHeight();
    const int projected =
        content_.height() + join.restored - join.trim + join.usable - join.seam + join.inset;
    if (!fits(projected)) return outcome(Disposition::outputLimitReached, join.motion.confidence);
    auto strip = makeSegment(image, join.seam, join.usable - join.seam);
    std::optional<Segment> footer;
    if (join.inset > 0) footer = makeSegment(image, image.height() - join.inset, join.inset);
    const bool lacksFooter = !footer && join.inset > 0;
    const bool isRestored = join.restored == 0 || restoreRows(join.restored);
    if (!strip || lacksFooter || !isRestored || !content_.trimTail(join.trim)) {
        ++matchFailureCount_;
        return outcome(Disposition::matchFailed, join.motion.confidence);
    }
    content_.append(std::move(*strip));
    fixedBottomInset_ = join.inset;
    footer_ = std::move(footer);
    ++contributedFrameCount_;
    reference_ = lastFrame_ = join.frame;
    pending_.reset();
    history_.isSteady = history_.previousDeltaY == join.motion.deltaY;
    history_.previousDeltaY = join.motion.deltaY;
    history_.isExact |= join.motion.isExact;
    history_.isConsecutive = true;
    noProgressCount_ = matchFailureCount_ = 0;
    hasReachedBottom_ = false;
    ScrollingStitchOutcome appended = outcome(Disposition::appended, join.motion.confidence);
    appended.appended = true;
    appended.addedHeightPixels = std::max(totalHeight() - before, 0);
    appended.horizontalOffsetPixels = join.motion.horizontalOffset;
    appended.motionPixels = join.motion.deltaY;
    return appended;
}

// Makes rows of the band at the bottom content again.
bool ScrollingStitchEngine::restoreRows(int rows) {
    const QImage& image = reference_->image();
    auto restored = makeSegment(image, image.height() - fixedBottomInset_, rows);
    if (!restored) return false;
    content_.append(std::move(*restored));
    fixedBottomInset_ -= rows;
    footer_ = makeSegment(image, image.height() - fixedBottomInset_, fixedBottomInset_);
    return true;
}

void ScrollingStitchEngine::settle() {
    if (!pending_) return;
    const Join join = *pending_;
    commit(join);
}

bool ScrollingStitchEngine::needsTemporaryFile() const {
    return qint64(pixelBytes) * width_ * totalHeight() >= config_.mappedRenderingThresholdBytes;
}

QImage ScrollingStitchEngine::compose() const {
    if (content_.isEmpty() || !fits(totalHeight())) return {};
    return composeLongImage({content_.segments(), footer_ ? &*footer_ : nullptr, width_,
                             config_.mappedRenderingThresholdBytes});
}

}  // namespace kestrio
