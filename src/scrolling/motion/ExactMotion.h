#pragma once

#include <optional>
#include <vector>

#include "scrolling/motion/ExactBands.h"
#include "scrolling/motion/RowFallback.h"
#include "scrolling/motion/RowSignature.h"

namespace kestrio {

/// What speaks for and against a motion: cells of rows and strips that show, bit for bit, what they
/// should, or do not.
struct MotionEvidence {
    int followed = 0;      ///< show what they should
    int matched = 0;       ///< of these, the ones that showed something else before
    int contradicted = 0;  ///< show neither what they should nor what they did

    /// What contradicts a motion weighs more than what happens to match: rows that repeat match
    /// under many.
    int score() const { return followed - 3 * contradicted; }
    /// The share of what speaks for it, 0 to 1.
    double share() const {
        return followed == 0 ? 0 : double(followed) / double(followed + contradicted);
    }
    /// Whether anything has moved at all: rows that repeat seem to follow where they stand still.
    bool showsMotion() const;
};

/// What the rows of two frames say about the motion between them, at full resolution.
struct ExactMotion {
    enum class Verdict {
        still,      ///< nothing moved, though something may have changed in place
        moved,      ///< one motion explains what changed, and no other does as well
        ambiguous,  ///< several motions explain it, as in a list of equal rows
        unknown,    ///< no motion explains it
    };

    Verdict verdict = Verdict::unknown;
    int deltaY =
        0;  ///< of the motion that explains most; pixels, upwards, negative when moved down
    MotionEvidence evidence;
    std::vector<int> alternatives;  ///< all motions that explain it, where ambiguous
    /// Whether rows confirm it that do not repeat. Of frames with an unknown distance between them,
    /// nothing else does.
    bool isDistinct = false;
    /// The motion, where one is unknown, under which many rows come back that occur only once,
    /// while more speaks against it, as where a video plays.
    std::optional<int> likely;
    /// Whether rows come back bit for bit under any motion at all: text that is redrawn between
    /// two pixels never does.
    bool hasExactRows = false;
};

/// Compares two frames of one size row by row. Keeps references to the signatures.
class ExactComparison {
  public:
    ExactComparison(const RowSignature& previous, const RowSignature& current);

    /// Looks at all motions up by 1 to `mostUp` pixels and down by 1 to `mostDown`.
    ExactMotion search(int mostUp, int mostDown) const;

    /// The evidence for one motion, negative when moved down, not 0; without what lies in the
    /// bands.
    MotionEvidence evidence(int deltaY, FixedBands bands = {}) const;

    /// Of the motions of `range`, the one with the best evidence; nothing where none has any.
    std::optional<int> bestWithin(MotionRange range) const;

    /// Whether most of what the middle of the frame shows stayed where it was.
    bool isMostlyStill() const;

    /// Whether the overlap under a motion up shows anything to compare.
    bool hasContent(int deltaY) const;

    /// What stays at the top and the bottom under a motion up.
    ExactBands fixedBands(int deltaY) const;

    /// The row of the current frame below the last one before `end`, but not above `begin`, that
    /// does not show what the motion up should have brought there; `begin` where all do.
    int firstSoundRow(int deltaY, int begin, int end) const;

  private:
    std::vector<bool> movingStrips(int deltaY) const;
    int distinctMatches(int deltaY) const;
    MotionEvidence evidenceBetweenBands(int deltaY) const;
    std::size_t bestIndex(const std::vector<MotionEvidence>& found,
                          const std::vector<int>& deltas) const;
    void weighAlternatives(ExactMotion& motion) const;
    std::optional<int> likelyMotion(const std::vector<MotionEvidence>& found,
                                    const std::vector<int>& deltas) const;

    const RowSignature& previous_;
    const RowSignature& current_;
    const ComparedFrames frames_;
    int changedCells_ = 0;
    int movableCells_ = 0;  // with a key, and changed
};

}  // namespace kestrio
