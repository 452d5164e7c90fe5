#include "imaging/filters/PixelVectors.h"

#include "core/Simd.h"

namespace kestrio {

KESTRIO_SIMD void packBytes(const std::int32_t* channels, std::uint8_t* __restrict bytes,
                            int count) {
    for (int i = 0; i < count; ++i)
        bytes[i] = static_cast<std::uint8_t>(channels[i]);
}

}  // namespace kestrio
