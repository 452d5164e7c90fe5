#include "imaging/codecs/ImageEncoder.h"

#include "imaging/ExportError.h"
#include "imaging/Image.h"
#include "imaging/codecs/JpegEncoder.h"
#include "imaging/codecs/PngEncoder.h"
#include "imaging/codecs/WebPEncoder.h"

namespace kestrio {

QByteArray encodeImage(const QImage& bitmap, ExportFormat format, const EncodeHooks& hooks) {
    if (bitmap.isNull()) throw ExportError::renderingFailed();
    if (hooks.stop.stop_requested()) throw ExportError::userCancelled();
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

}  // namespace kestrio
