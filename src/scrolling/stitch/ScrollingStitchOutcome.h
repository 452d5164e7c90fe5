#pragma once

#include "core/EnumTable.h"

namespace kestrio {

/// What became of a frame.
enum class ScrollingStitchDisposition {
    seeded,     ///< the first one
    appended,   ///< its new rows were added
    duplicate,  ///< the same as the one before
    noMotion,
    matchFailed,
    discontinuity,  ///< it cannot be joined to what is there without losing or doubling rows
    horizontalMotion,
    outputLimitReached,
};

inline constexpr EnumTable<ScrollingStitchDisposition, 8> scrollingStitchDispositionTable = {
    {{ScrollingStitchDisposition::seeded, "seeded"},
     {ScrollingStitchDisposition::appended, "appended"},
     {ScrollingStitchDisposition::duplicate, "duplicate"},
     {ScrollingStitchDisposition::noMotion, "noMotion"},
     {ScrollingStitchDisposition::matchFailed, "matchFailed"},
     {ScrollingStitchDisposition::discontinuity, "discontinuity"},
     {ScrollingStitchDisposition::horizontalMotion, "horizontalMotion"},
     {ScrollingStitchDisposition::outputLimitReached, "outputLimitReached"}}};

constexpr const auto& enumTable(ScrollingStitchDisposition) {
    return scrollingStitchDispositionTable;
}

/// Why a frame was not joined, beyond its disposition.
enum class StitchObstacle {
    none,
    movedBack,      ///< the content moved down: the frame shows rows that are there already
    aboveStart,     ///< the content moved down, beyond the first row
    ambiguous,      ///< several motions explain it equally well
    noEvidence,     ///< the rows that both frames show are blank
    contradictory,  ///< rows and features tell different motions
    gap,            ///< it moved so far that rows were never shown
    otherSize,      ///< it is not as large as the others
};

inline constexpr EnumTable<StitchObstacle, 8> stitchObstacleTable = {
    {{StitchObstacle::none, "none"},
     {StitchObstacle::movedBack, "movedBack", Kestrio::marked("it was scrolled back")},
     {StitchObstacle::aboveStart, "aboveStart",
      Kestrio::marked("it shows rows above the first frame")},
     {StitchObstacle::ambiguous, "ambiguous",
      Kestrio::marked("its rows repeat, so that several motions explain it")},
     {StitchObstacle::noEvidence, "noEvidence",
      Kestrio::marked("the rows that it shares with the frame before are blank")},
     {StitchObstacle::contradictory, "contradictory",
      Kestrio::marked("its parts moved differently")},
     {StitchObstacle::gap, "gap",
      Kestrio::marked("it was scrolled too far, so that rows are missing")},
     {StitchObstacle::otherSize, "otherSize", Kestrio::marked("its size differs")}}};

constexpr const auto& enumTable(StitchObstacle) {
    return stitchObstacleTable;
}

/// The engine's answer to a frame. Heights and offsets are pixels.
struct ScrollingStitchOutcome {
    bool appended = false;
    int addedHeightPixels = 0;
    bool duplicate = false;
    bool reachedBottom = false;
    int totalHeightPixels = 0;  ///< of the long picture so far
    int acceptedFrameCount = 0;
    ScrollingStitchDisposition disposition = ScrollingStitchDisposition::matchFailed;
    double confidence = 0;
    int horizontalOffsetPixels = 0;
    int consecutiveFailureCount = 0;
    int motionPixels = 0;  ///< how far the content moved up since the last frame that was joined
    StitchObstacle obstacle = StitchObstacle::none;

    bool operator==(const ScrollingStitchOutcome&) const = default;
};

}  // namespace kestrio
