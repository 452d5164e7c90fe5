#include "imaging/codecs/PngUnfilter.h"

#include "core/Simd.h"

namespace kestrio {

namespace {

// One pixel in the lowest four lanes. Channels are independent of each other, so a row is first
// widened to words and then restored in place, four channels at a time, whatever their order.
using Lanes = quint8 __attribute__((vector_size(16)));
using Words = quint32 __attribute__((vector_size(16)));

inline Lanes load(quint32 pixel) {
    return reinterpret_cast<Lanes>(Words{pixel, 0, 0, 0});
}
inline quint32 stored(Lanes lanes) {
    return reinterpret_cast<Words>(lanes)[0];
}

inline Lanes larger(Lanes a, Lanes b) {
    return a > b ? a : b;
}
inline Lanes smaller(Lanes a, Lanes b) {
    return a < b ? a : b;
}
inline Lanes distance(Lanes a, Lanes b) {
    return larger(a, b) - smaller(a, b);
}

KESTRIO_SIMD void widenRgb(const uchar* __restrict source, quint32* __restrict target, int count) {
    for (int x = 0; x < count; ++x) {
        target[x] = quint32(source[3 * x]) << 16 | quint32(source[3 * x + 1]) << 8 |
                    quint32(source[3 * x + 2]);
    }
}

KESTRIO_SIMD void swapRedAndBlue(const uchar* __restrict source, quint32* __restrict target,
                                 int count) {
    for (int x = 0; x < count; ++x) {
        target[x] = quint32(source[4 * x]) << 16 | quint32(source[4 * x + 1]) << 8 |
                    quint32(source[4 * x + 2]) | quint32(source[4 * x + 3]) << 24;
    }
}

KESTRIO_SIMD void makeOpaque(quint32* row, int count) {
    for (int x = 0; x < count; ++x)
        row[x] |= 0xff000000u;
}

KESTRIO_SIMD void undoSub(quint32* row, int count) {
    Lanes left{};
    for (int x = 0; x < count; ++x) {
        left += load(row[x]);
        row[x] = stored(left);
    }
}

KESTRIO_SIMD void undoUp(quint32* __restrict row, const quint32* __restrict above, int count) {
    auto* target = reinterpret_cast<uchar*>(row);
    const auto* source = reinterpret_cast<const uchar*>(above);
    for (int i = 0; i < 4 * count; ++i)
        target[i] = static_cast<uchar>(target[i] + source[i]);
}

KESTRIO_SIMD void undoAverage(quint32* row, const quint32* above, int count) {
    Lanes left{};
    for (int x = 0; x < count; ++x) {
        const Lanes up = load(above[x]);
        // The mean rounded down, without a ninth bit.
        left = load(row[x]) + ((left & up) + ((left ^ up) >> 1));
        row[x] = stored(left);
    }
}

// PngFilter.cpp says why bytes suffice for the three errors.
KESTRIO_SIMD void undoPaeth(quint32* row, const quint32* above, int count) {
    Lanes left{};
    Lanes corner{};
    for (int x = 0; x < count; ++x) {
        const Lanes up = load(above[x]);
        const Lanes leftError = distance(up, corner);
        const Lanes upError = distance(left, corner);
        const auto between = (left > corner) ^ (up > corner);
        const Lanes cornerError =
            between ? distance(leftError, upError) : larger(leftError, upError);
        const Lanes other = upError <= cornerError ? up : corner;
        left = load(row[x]) + (leftError <= smaller(upError, cornerError) ? left : other);
        corner = up;
        row[x] = stored(left);
    }
}

}  // namespace

bool unfilterRow(const uchar* filtered, int pixelBytes, const quint32* above, quint32* target,
                 int count) {
    const bool opaque = pixelBytes == 3;
    (opaque ? widenRgb : swapRedAndBlue)(filtered + 1, target, count);
    switch (filtered[0]) {
        case 0:
            break;
        case 1:
            undoSub(target, count);
            break;
        case 2:
            undoUp(target, above, count);
            break;
        case 3:
            undoAverage(target, above, count);
            break;
        case 4:
            undoPaeth(target, above, count);
            break;
        default:
            return false;
    }
    if (opaque) makeOpaque(target, count);
    return true;
}

}  // namespace kestrio
