#pragma once

#include <QImage>

namespace kestrio {

/// Where to look for the row at which the old rows of a long picture end and a new frame's begin.
/// All in pixels of the frames.
struct SeamRequest {
    int deltaY = 0;        ///< how far the content moved up
    int overlap = 0;       ///< rows of the current frame that the previous one shows too
    int topFixed = 0;      ///< band at the top of the current frame that must not be used
    int blendHeight = 18;  ///< rows above the end of the overlap that may be used
    int columns = 64;      ///< samples of a row
};

/// The row of the current frame from which on its rows are used: two above the end of the overlap,
/// or another one near it where both frames agree clearly better.
int findSeam(const QImage& previous, const QImage& current, const SeamRequest& request);

}  // namespace kestrio
