#include "text/recognition/OCRError.h"

#include "core/Localisation.h"

namespace kestrio {

OCRError OCRError::recognitionFailed(QString reason) {
    OCRError error(Case::recognitionFailed);
    error.reason_ = std::move(reason);
    return error;
}

QString OCRError::errorDescription() const {
    switch (which_) {
        case Case::recognitionFailed:
            return Kestrio::tr("Recognition failed: %1").arg(reason_);
        case Case::imageConversionFailed:
            return Kestrio::tr("Failed to process image");
        case Case::timeout:
            return Kestrio::tr("OCR timed out. Try with a smaller image.");
        case Case::invalidImage:
            return Kestrio::tr("Invalid image");
        case Case::noTextFound:
            return Kestrio::tr("No text detected in image");
        case Case::regionOutOfBounds:
            return Kestrio::tr("Selected region is outside image bounds");
    }
    return {};
}

}  // namespace kestrio
