#pragma once

#include "core/EnumTable.h"

namespace kestrio {

/// The file formats that finished pictures leave in.
enum class ExportFormat { png, jpeg, webp };

inline constexpr EnumTable<ExportFormat, 3> exportFormats = {{
    {ExportFormat::png, "png", "PNG"},
    {ExportFormat::jpeg, "jpeg", "JPEG"},
    {ExportFormat::webp, "webp", "WebP"},
}};
constexpr const auto& enumTable(ExportFormat) {
    return exportFormats;
}

/// The raw string, which is also the extension of files without its dot; JPEG files end in "jpeg".
inline QString fileExtension(ExportFormat format) {
    return rawString(format);
}

/// The MIME type, such as "image/png".
inline QString mimeType(ExportFormat format) {
    return QStringLiteral("image/") + rawString(format);
}

}  // namespace kestrio
