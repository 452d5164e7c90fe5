#include "imaging/ExportFormat.h"

namespace kestrio {

QString fileExtension(ExportFormat format) {
    switch (format) {
        case ExportFormat::png: return QStringLiteral("png");
        case ExportFormat::jpeg: return QStringLiteral("jpeg");
        case ExportFormat::webp: return QStringLiteral("webp");
    }
    return {};
}

QString mimeType(ExportFormat format) { return QStringLiteral("image/") + fileExtension(format); }

}  // namespace kestrio
