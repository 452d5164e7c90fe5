#pragma once

#include "text/patterns/RegularExpression.h"
#include "text/recognition/OCRResult.h"

namespace kestrio {

/// How far apart two pieces of a line are.
enum class Gap {
    none,    ///< between the units of a word
    narrow,  ///< a space
    wide,    ///< further than the spaces of one number or word would be: columns, fields
};

/// Boxes that stand side by side, as one text: recognisers split a line where its gaps are wide,
/// and sometimes within a word.
struct VisualLine {
    struct Unit {
        int box = -1;   ///< index among the boxes that were joined; -1 for what joins two of them
        int place = 0;  ///< the unit of the box's text
        Gap gap = Gap::none;
    };

    QString text;  ///< the boxes' texts with a space between them
    std::vector<Unit> units;
    /// Of the gaps between boxes, those that may be none at all: the word may go on behind them.
    std::vector<int> seams;
};

/// The boxes of a picture as lines, in the order of their first boxes; every box is in one line.
/// Boxes belong to one line where they overlap in height and stand a few letters apart.
std::vector<VisualLine> visualLines(const std::vector<OCRResult>& boxes, QSize picture);

/// The rectangle of a box in pixels of the picture from its top left.
QRectF pixelRect(const OCRResult& box, QSize picture);

}  // namespace kestrio
