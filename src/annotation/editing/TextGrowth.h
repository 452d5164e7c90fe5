#pragma once

#include "annotation/model/TextAnnotation.h"

namespace kestrio {

/// How the box of a text may grow while it is typed, in points.
struct TextGrowth {
    QSizeF leastSize;        ///< the box when typing began
    double widest = 0;       ///< the greatest width
    bool growsWide = false;  ///< or only downwards, as the box of a text that was wrapped
};

/// The growth of a text whose typing begins. Its box reaches `right` at most (x of the text's
/// points) where it is not wider already.
TextGrowth textGrowth(const TextAnnotation& text, double right);

/// The box that holds the text as it is now. The corner where the text begins stays where it is,
/// turned texts included.
QRectF grownBox(const TextAnnotation& text, const TextGrowth& growth);

}  // namespace kestrio
