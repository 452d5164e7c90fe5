#include "imaging/codecs/StraightAlpha.h"

#include <algorithm>

#include "core/Simd.h"

namespace kestrio {

namespace {

inline quint32 divided(quint32 colour, quint32 alpha) {
    return std::min(255u, (colour * 255 + alpha / 2) / alpha);
}

}  // namespace

void unpremultiplyRow(const quint32* source, quint32* target, int count) {
    for (int x = 0; x < count; ++x) {
        const quint32 pixel = source[x];
        const quint32 alpha = pixel >> 24;
        if (alpha == 0 || alpha == 255) {
            target[x] = pixel;
            continue;
        }
        target[x] = alpha << 24 | divided(pixel >> 16 & 0xff, alpha) << 16 |
                    divided(pixel >> 8 & 0xff, alpha) << 8 | divided(pixel & 0xff, alpha);
    }
}

KESTRIO_SIMD void opaqueRow(const quint32* source, quint32* target, int count) {
    for (int x = 0; x < count; ++x)
        target[x] = source[x] | 0xff000000u;
}

}  // namespace kestrio
