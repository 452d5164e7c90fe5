#pragma once

#include "text/detection/VisualLine.h"

namespace kestrio {

struct FindingPlace {
    QRectF rect;            ///< pixels of the picture from its top left, within it
    double confidence = 0;  ///< of the least certain box
};

/// What has to be covered so that a part of a line cannot be read: its characters with a margin, or
/// an estimate where the recogniser does not know where characters are.
FindingPlace placeOf(const TextRange& range, const VisualLine& line,
                     const std::vector<OCRResult>& boxes, QSize picture);

}  // namespace kestrio
