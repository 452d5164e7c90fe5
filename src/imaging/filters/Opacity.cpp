#include "imaging/filters/Opacity.h"

#include "core/Parallel.h"
#include "core/Simd.h"

#include <atomic>
#include <cstdint>

namespace kestrio {

namespace {

KESTRIO_SIMD std::uint32_t commonBits(const QRgb* row, int count) {
    std::uint32_t common = ~0u;
    for (int x = 0; x < count; ++x)
        common &= row[x];
    return common;
}

}  // namespace

bool isOpaque(const QImage& bitmap) {
    if (!bitmap.hasAlphaChannel()) return true;
    std::atomic<bool> opaque = true;
    parallelBands(bitmap.height(), 64, [&](int first, int last) {
        for (int y = first; y < last && opaque; ++y) {
            const auto* row = reinterpret_cast<const QRgb*>(bitmap.constScanLine(y));
            if (commonBits(row, bitmap.width()) >> 24 != 255) opaque = false;
        }
    });
    return opaque;
}

QImage markedOpaque(QImage bitmap) {
    if (bitmap.format() == QImage::Format_ARGB32_Premultiplied && isOpaque(bitmap)) {
        bitmap.reinterpretAsFormat(QImage::Format_RGB32);
    }
    return bitmap;
}

}  // namespace kestrio
