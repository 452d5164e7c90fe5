#pragma once

#include <optional>

#include "scrolling/stitch/MotionJudge.h"
#include "scrolling/stitch/ScrollingStitchOutcome.h"
#include "scrolling/stitch/Segment.h"

namespace kestrio {

struct ScrollingStitchConfig {
    double minOverlapRatio = 0.2;        ///< share of a frame that the one before must show too
    double duplicateSimilarity = 0.999;  ///< of thumbnails
    int minNewContentPixels = 2;         ///< a frame must add more rows than this
    int bottomRepeatThreshold = 3;       ///< frames without new rows that mean the end of the page
    int blendHeightPixels = 18;          ///< rows in which a seam is sought
    int sampleRows = 14;
    int sampleColumnTarget = 64;
    bool compressSegments = true;
    qint64 maximumOutputBytes = 1'500'000'000;  ///< of the finished bitmap
    qint64 mappedRenderingThresholdBytes = 67'108'864;

    bool operator==(const ScrollingStitchConfig&) const = default;
};

/// Joins frames of one region of the screen, whose content moves up, into one tall picture. Each
/// frame is judged against the last one that was joined; of those that add rows, the new rows are
/// kept. A band that stays at the bottom is kept apart and appears once, at the end. Not for two
/// threads at once.
class ScrollingStitchEngine {
  public:
    using Config = ScrollingStitchConfig;

    explicit ScrollingStitchEngine(Config config = {});
    ScrollingStitchEngine(Config config, ScrollingMotionEstimator estimator);

    const Config& config() const { return config_; }

    ScrollingStitchOutcome ingest(const QImage& frame);
    /// Adds all rows of a frame below those that are there, whatever they show: for a frame that
    /// was refused. Frames of another size, and those for which there is no room, are refused
    /// still.
    ScrollingStitchOutcome ingestAsBreak(const QImage& frame);
    /// Adds the rows of the newest frame where it has moved too little to be added so far. Before
    /// compose(), at the end.
    void settle();
    /// The picture so far; null before the first frame, and where memory or disk have no room for
    /// it. Changes nothing.
    QImage compose() const;
    /// Whether the picture is so large that compose() keeps its pixels in the temporary folder.
    bool needsTemporaryFile() const;
    void reset();

    /// Rows of the picture, the band at the bottom included.
    int totalHeight() const { return content_.height() + (footer_ ? footer_->height : 0); }
    int acceptedFrameCount() const { return contributedFrameCount_; }
    int matchFailureCount() const { return matchFailureCount_; }
    /// Bytes that the stored rows and the last frame take.
    qint64 retainedStorageBytes() const;

  private:
    /// An append that has been checked and prepared, but changed nothing yet.
    struct Join {
        StitchFramePtr frame;
        JudgedMotion motion;
        int inset = 0;       ///< rows of the band at the bottom
        int usable = 0;      ///< rows above it
        int overlap = 0;     ///< rows that are known already
        int seam = 0;        ///< the first row to be used
        int trim = 0;        ///< stored rows that it replaces
        int restored = 0;    ///< rows that were taken for a band, but are needed as content
        bool isGap = false;  ///< rows between what is known and the frame were never shown
    };

    bool fits(int rows) const;
    ScrollingStitchOutcome outcome(ScrollingStitchDisposition disposition, double confidence) const;
    ScrollingStitchOutcome seed(const StitchFramePtr& frame);
    ScrollingStitchOutcome noProgress(bool isDuplicate, double confidence);
    ScrollingStitchOutcome refuse(const JudgedMotion& motion);
    ScrollingStitchOutcome keepStill(const StitchFramePtr& frame, const JudgedMotion& motion);
    ScrollingStitchOutcome append(const StitchFramePtr& frame, const JudgedMotion& motion);
    Join prepare(const StitchFramePtr& frame, const JudgedMotion& motion) const;
    Join prepareAbove(const StitchFramePtr& frame, const JudgedMotion& motion, int bottom) const;
    Join prepareRestored(const StitchFramePtr& frame, const JudgedMotion& motion, int bar) const;
    int seamOf(const Join& join) const;
    bool restoreRows(int rows);
    ScrollingStitchOutcome commit(const Join& join);
    void restoreFooterUnlessShown(const QImage& frame);
    ScrollingStitchOutcome refuseSize();
    StitchFramePtr analysed(const QImage& image) const;
    void refreshFooter(const QImage& frame);

    Config config_;
    MotionJudge judge_;
    SegmentList content_;
    std::optional<Segment> footer_;
    int width_ = 0;
    int fixedBottomInset_ = 0;
    int contributedFrameCount_ = 0;
    int noProgressCount_ = 0;
    int matchFailureCount_ = 0;
    bool hasReachedBottom_ = false;
    StitchFramePtr reference_;     // the last frame that was joined
    StitchFramePtr lastFrame_;     // the newest one at the same place
    std::optional<Join> pending_;  // moved too little to be joined
    MotionHistory history_;
};

}  // namespace kestrio
