#pragma once

#include "core/Task.h"
#include "scrolling/stitch/ScrollingStitchOutcome.h"

#include <QImage>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

namespace kestrio {

/// What becomes of frames that do not continue the ones before.
enum class StitchBreaks {
    refuse,  ///< they are left out
    join,    ///< all their rows follow below
};

struct StitchRequest {
    QStringList frames;  ///< files, from the top of the page down
    StitchBreaks breaks = StitchBreaks::refuse;
};

/// What became of one frame.
struct StitchedFrame {
    QString input;
    ScrollingStitchOutcome outcome;
    bool isBreak = false;  ///< joined although it does not continue the ones before
    QString failure;       ///< why the file could not be read; empty otherwise

    bool wasRead() const { return failure.isEmpty(); }
};

struct StitchResult {
    std::vector<StitchedFrame> frames;
    QImage picture;  ///< null where nothing was joined, or there is no room for it
    double seconds = 0;
    qint64 peakRetainedBytes = 0;
    /// True where rows are missing: the last frames were refused, and none after them closed the
    /// gap.
    bool isIncomplete = false;
};

/// Joins the frames in their order, off the main loop; the next file is read meanwhile.
/// `progress` is called with each frame's number, from 1, and its file, before it is read. Throws
/// Cancelled after a stop.
Task<StitchResult> stitchFiles(StitchRequest request,
                               std::function<void(int number, QString file)> progress,
                               std::stop_token stop);

}  // namespace kestrio
