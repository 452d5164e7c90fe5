#pragma once

#include "core/Task.h"
#include "imaging/Image.h"
#include "text/recognition/OCRResult.h"

namespace kestrio {

/// Text recognition as features use it. Main thread only. Operations throw OCRError, and Cancelled
/// after a stop.
class OCRServiceProtocol {
  public:
    virtual ~OCRServiceProtocol() = default;

    /// Why no text can be read on this machine, as a sentence for the user; empty where it can.
    virtual QString obstacle() const = 0;
    /// The lines of the whole picture as the recogniser gave them, with their characters. Keeps
    /// nothing.
    virtual Task<std::vector<OCRResult>> recognizeLines(Image image, std::stop_token stop) = 0;
    /// The lines of the whole picture; the same picture gives the same records for some minutes.
    virtual Task<std::vector<OCRResultWithConfidence>> recognizeText(Image image,
                                                                     std::stop_token stop) = 0;
    /// The lines of a part of it, `region` being fractions from the bottom left. Rectangles are
    /// fractions of the whole picture.
    virtual Task<std::vector<OCRResultWithConfidence>> recognizeText(Image image, QRectF region,
                                                                     std::stop_token stop) = 0;
};

}  // namespace kestrio
