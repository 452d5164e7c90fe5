#pragma once

#include <QImage>

#include "scrolling/stitch/Segment.h"

namespace kestrio {

/// What a long picture consists of.
struct LongImageParts {
    const std::vector<Segment>& segments;
    const Segment* footer = nullptr;  ///< below them, null for none
    int width = 0;
    /// Bitmaps of so many bytes lie in a file instead of memory.
    qint64 mappedFrom = 0;
};

/// The rows of all parts as one bitmap, from the top down. Null where a part cannot be decoded or
/// there is no room for the bitmap.
QImage composeLongImage(const LongImageParts& parts);

}  // namespace kestrio
