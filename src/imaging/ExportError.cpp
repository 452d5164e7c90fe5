#include "imaging/ExportError.h"

#include "core/Localisation.h"

namespace kestrio {

ExportError ExportError::fileWriteFailed(QString path, QString reason) {
    ExportError error(Case::fileWriteFailed);
    error.path_ = std::move(path);
    error.reason_ = std::move(reason);
    return error;
}

ExportError ExportError::renderingFailed(QString reason) {
    ExportError error(Case::renderingFailed);
    error.reason_ = std::move(reason);
    return error;
}

ExportError ExportError::unsupportedFormat(ExportFormat format) {
    ExportError error(Case::unsupportedFormat);
    error.format_ = format;
    return error;
}

QString ExportError::errorDescription() const {
    switch (case_) {
        case Case::fileWriteFailed:
            return Kestrio::tr("Failed to write file: %1").arg(path_);
        case Case::unsupportedFormat:
            if (format_ == ExportFormat::webp) {
                return Kestrio::tr(
                    "WebP export is not available on this system. Please export as PNG or "
                    "JPEG.");
            }
            return Kestrio::tr("Unsupported export format: %1")
                .arg(fileExtension(format_).toUpper());
        case Case::renderingFailed:
            return Kestrio::tr("Image rendering failed");
        case Case::clipboardFailed:
            return Kestrio::tr("Failed to copy to clipboard");
        case Case::invalidFormat:
            return Kestrio::tr("Unsupported export format");
        case Case::insufficientDiskSpace:
            return Kestrio::tr("Insufficient disk space");
        case Case::userCancelled:
            return Kestrio::tr("Export cancelled by user");
    }
    return {};
}

QString ExportError::fullDescription() const {
    if (reason_.isEmpty()) return errorDescription();
    return errorDescription() + QStringLiteral(" (%1)").arg(reason_);
}

}  // namespace kestrio
