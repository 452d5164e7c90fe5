#pragma once

#include "text/recognition/OCRResult.h"

#include <QByteArray>

namespace kestrio {

/// The text of a picture, a line for each of its own, in their order; empty for a picture without
/// text.
QByteArray plainTextOf(const std::vector<OCRResultWithConfidence>& results);

/// The same with what is known of each line: "rect" is left, top, width and height in pixels from
/// the top left of a picture of `size`, "confidence" 0 to 1, "language" that of code or null.
QByteArray jsonOf(const std::vector<OCRResultWithConfidence>& results, QSize size);

}  // namespace kestrio
