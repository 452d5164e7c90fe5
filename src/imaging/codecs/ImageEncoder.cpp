#include "imaging/codecs/ImageEncoder.h"

#include "core/Localisation.h"
#include "imaging/ExportError.h"
#include "imaging/Image.h"
#include "imaging/codecs/JpegEncoder.h"
#include "imaging/codecs/PngEncoder.h"
#include "imaging/codecs/WebPEncoder.h"

#include <limits>

namespace kestrio {

namespace {

// Of libjpeg, a little under what its files can say, and of libwebp.
constexpr int mostOfJpeg = 65500;
constexpr int mostOfWebP = 16383;

}  // namespace

QByteArray encodeImage(const QImage& bitmap, ExportFormat format, const EncodeHooks& hooks) {
    if (bitmap.isNull()) throw ExportError::renderingFailed();
    if (hooks.stop.stop_requested()) throw ExportError::userCancelled();
    requireEncodable(bitmap.size(), format);
    const QImage canonical = inCanonicalFormat(bitmap);
    switch (format) {
        case ExportFormat::png:
            return encodePng(canonical, hooks);
        case ExportFormat::jpeg:
            return encodeJpeg(canonical, hooks);
        case ExportFormat::webp:
            return encodeWebP(canonical, hooks);
    }
    throw ExportError::unsupportedFormat(format);
}

int longestSide(ExportFormat format) {
    switch (format) {
        case ExportFormat::png:
            return std::numeric_limits<int>::max();
        case ExportFormat::jpeg:
            return mostOfJpeg;
        case ExportFormat::webp:
            return mostOfWebP;
    }
    return 0;
}

void requireEncodable(QSize pixels, ExportFormat format) {
    const int most = longestSide(format);
    if (std::max(pixels.width(), pixels.height()) <= most) return;
    throw ExportError::renderingFailed(
        Kestrio::tr("a %1 file holds at most %2 x %2 pixels, the picture has %3 x %4; "
                    "write PNG instead")
            .arg(displayName(format))
            .arg(most)
            .arg(pixels.width())
            .arg(pixels.height()));
}

}  // namespace kestrio
