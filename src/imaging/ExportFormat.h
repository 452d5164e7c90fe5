#pragma once

#include <QString>
#include <array>

namespace kestrio {

/// The file formats that finished pictures leave in. Coded by its raw string: "png", "jpeg", "webp".
enum class ExportFormat { png, jpeg, webp };

inline constexpr std::array allExportFormats = {ExportFormat::png, ExportFormat::jpeg,
                                                ExportFormat::webp};

/// The raw string, which is also the extension of files without its dot; JPEG files end in "jpeg".
QString fileExtension(ExportFormat format);

/// The MIME type, such as "image/png".
QString mimeType(ExportFormat format);

}  // namespace kestrio
