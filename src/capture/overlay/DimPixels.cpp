#include "capture/overlay/DimPixels.h"

#include "core/Parallel.h"
#include "core/Simd.h"

#include <cstring>

namespace kestrio {

namespace {

// Fewer rows than this are done before another thread has woken up.
constexpr int leastBand = 128;

// 0.7 in 256ths; two channels of a pixel at a time.
constexpr quint32 factor = 179;
constexpr quint32 oddChannels = 0x00ff00ff;

KESTRIO_SIMD void dimRow(quint32* target, const quint32* source, int count) {
    for (int i = 0; i < count; ++i) {
        const quint32 redBlue = (source[i] & oddChannels) * factor >> 8 & oddChannels;
        const quint32 green = (source[i] >> 8 & 0xff) * factor & 0xff00;
        target[i] = 0xff000000 | redBlue | green;
    }
}

using CopyRow = void (*)(quint32* target, const quint32* source, int count);

void plainRow(quint32* target, const quint32* source, int count) {
    std::memcpy(target, source, sizeof(quint32) * static_cast<std::size_t>(count));
}

void copyRows(QImage& target, const QImage& source, QRect part, CopyRow copy) {
    part &= target.rect() & source.rect();
    if (part.isEmpty()) return;
    // Not scanLine(), which would look for other owners in each thread.
    uchar* const bits = target.bits();
    const qsizetype stride = target.bytesPerLine();
    parallelBands(part.height(), leastBand, [&](int first, int last) {
        for (int row = first; row < last; ++row) {
            const int y = part.y() + row;
            auto* to = reinterpret_cast<quint32*>(bits + y * stride) + part.x();
            const auto* from = reinterpret_cast<const quint32*>(source.constScanLine(y)) + part.x();
            copy(to, from, part.width());
        }
    });
}

}  // namespace

void copyDimmed(QImage& target, const QImage& source, QRect part) {
    copyRows(target, source, part, dimRow);
}

void copyPlain(QImage& target, const QImage& source, QRect part) {
    copyRows(target, source, part, plainRow);
}

}  // namespace kestrio
