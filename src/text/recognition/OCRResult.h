#pragma once

#include "platform/TextRecognizer.h"

#include <QRectF>
#include <QString>
#include <QUuid>
#include <optional>
#include <vector>

namespace kestrio {

/// A line as the recogniser gave it, in fractions of the picture.
struct OCRResult {
    QString text;
    QRectF boundingBox;     ///< fractions of the picture, origin at its bottom left, y upwards; its
                            ///< top() is the smaller y
    double confidence = 0;  ///< as the recogniser gave it
    /// What the recogniser knows of the single characters, in pixels of the picture from its top
    /// left.
    std::optional<RecognizedLine> recognizedText;
};

/// A line as features and views use it.
struct OCRResultWithConfidence {
    QUuid id;
    QString text;
    QRectF bounds;          ///< as OCRResult::boundingBox
    double confidence = 0;  ///< 0 to 1
    bool isCodeBlock = false;

    bool operator==(const OCRResultWithConfidence&) const = default;
};

/// A rectangle of pixels from the top left as a fraction of a picture of `size`, from its bottom
/// left; and back.
QRectF normalizedFromPixels(QRectF pixels, QSize size);
QRectF pixelsFromNormalized(QRectF fractions, QSize size);

}  // namespace kestrio
