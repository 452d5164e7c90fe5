#pragma once

#include <algorithm>
#include <cstdint>

namespace kestrio {

/// A premultiplied ARGB32 pixel taken apart for filters that stretch the distance of its channels
/// from their luma; all values are 0 to 255. For loops marked KESTRIO_SIMD, hence inlined always.
struct LumaPixel {
    float alpha, red, green, blue, luma;

    [[gnu::always_inline]] explicit LumaPixel(std::uint32_t pixel)
        : alpha(static_cast<std::int32_t>(pixel >> 24)),
          red(static_cast<std::int32_t>(pixel >> 16 & 255u)),
          green(static_cast<std::int32_t>(pixel >> 8 & 255u)),
          blue(static_cast<std::int32_t>(pixel & 255u)),
          luma(red * 0.2125f + green * 0.7154f + blue * 0.0721f) {}

    /// The pixel with all distances multiplied; channels stay between 0 and alpha.
    [[gnu::always_inline]] std::uint32_t stretched(float factor) const {
        return static_cast<std::uint32_t>(static_cast<std::int32_t>(alpha)) << 24 |
               channel(red, factor) << 16 | channel(green, factor) << 8 | channel(blue, factor);
    }

  private:
    [[gnu::always_inline]] std::uint32_t channel(float value, float factor) const {
        const float moved = luma + (value - luma) * factor;
        const float inRange = std::min(std::max(moved, 0.0f), alpha);
        return static_cast<std::uint32_t>(static_cast<std::int32_t>(inRange + 0.5f));
    }
};

}  // namespace kestrio
