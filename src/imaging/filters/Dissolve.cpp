#include "imaging/filters/Dissolve.h"

#include "core/Clamp.h"
#include "core/Simd.h"
#include "imaging/filters/EachRow.h"

namespace kestrio {

namespace {

KESTRIO_SIMD void dissolveRow(std::uint8_t* __restrict bytes, const std::uint8_t* __restrict target,
                              int count, float amount) {
    for (int i = 0; i < count; ++i) {
        const float from = bytes[i];
        const float mixed = from + (target[i] - from) * amount + 0.5f;
        bytes[i] = static_cast<std::uint8_t>(static_cast<std::int32_t>(mixed));
    }
}

}  // namespace

void dissolve(QImage& bitmap, const QImage& target, double amount) {
    const float share = static_cast<float>(clampedOr(amount, 0, 1));
    if (bitmap.isNull() || bitmap.size() != target.size() || share == 0) return;
    // Mixing keeps colours below their alpha. A bitmap that may not be opaque makes the mixture so.
    const QImage towards = inCanonicalFormat(target);
    if (towards.hasAlphaChannel() && !bitmap.hasAlphaChannel()) {
        bitmap = std::move(bitmap).convertToFormat(towards.format());
    }
    eachRow(bitmap, [&, samples = bitmap.width() * 4](std::uint32_t* row, int y) {
        dissolveRow(reinterpret_cast<std::uint8_t*>(row), towards.constScanLine(y), samples, share);
    });
}

}  // namespace kestrio
