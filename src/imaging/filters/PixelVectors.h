#pragma once

#include <cstdint>
#include <cstring>

// For the including file too, where the compiler warns: everything here is inlined, and no vector
// passes between functions compiled for different processors.
#pragma GCC diagnostic ignored "-Wpsabi"

namespace kestrio {

// A pixel of four channels in memory's order, blue, green, red and alpha; two of them fill a vector
// of AVX2's, and the compiler splits them for lesser processors.
using Float4 = float __attribute__((vector_size(16)));
using Float8 = float __attribute__((vector_size(32)));
using Int8 = std::int32_t __attribute__((vector_size(32)));

using Byte16 = std::uint8_t __attribute__((vector_size(16)));
using Short8 = std::uint16_t __attribute__((vector_size(16)));
using Short16 = std::uint16_t __attribute__((vector_size(32)));

[[gnu::always_inline]] inline Float8 loadFloats(const float* eight) {
    Float8 vector;
    std::memcpy(&vector, eight, sizeof vector);
    return vector;
}

/// Two pixels that lie apart.
[[gnu::always_inline]] inline Float8 loadFloats(const float* four, const float* otherFour) {
    Float4 a, b;
    std::memcpy(&a, four, sizeof a);
    std::memcpy(&b, otherFour, sizeof b);
    return __builtin_shufflevector(a, b, 0, 1, 2, 3, 4, 5, 6, 7);
}

// Widening by interleaving with zeros is what compilers turn into single instructions; they convert
// vectors of bytes one by one.
[[gnu::always_inline]] inline Float8 widened(Byte16 eightBytes) {
    const Short8 low = reinterpret_cast<Short8>(eightBytes), none{};
    const Short16 words =
        __builtin_shufflevector(low, none, 0, 8, 1, 9, 2, 10, 3, 11, 4, 12, 5, 13, 6, 14, 7, 15);
    return __builtin_convertvector(reinterpret_cast<Int8>(words), Float8);
}

[[gnu::always_inline]] inline Float8 firstTwoPixels(Byte16 pixels) {
    const Byte16 none{};
    return widened(__builtin_shufflevector(pixels, none, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21,
                                           6, 22, 7, 23));
}

[[gnu::always_inline]] inline Float8 lastTwoPixels(Byte16 pixels) {
    const Byte16 none{};
    return widened(__builtin_shufflevector(pixels, none, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13,
                                           29, 14, 30, 15, 31));
}

[[gnu::always_inline]] inline Float8 pixelTwice(Float4 pixel) {
    return __builtin_shufflevector(pixel, pixel, 0, 1, 2, 3, 4, 5, 6, 7);
}

[[gnu::always_inline]] inline Float4 firstPixel(const Float8& pixels) {
    return __builtin_shufflevector(pixels, pixels, 0, 1, 2, 3);
}

[[gnu::always_inline]] inline Float4 secondPixel(const Float8& pixels) {
    return __builtin_shufflevector(pixels, pixels, 4, 5, 6, 7);
}

/// Interpolated pixels as valid premultiplied ones: kernels with negative lobes can push colours
/// above their alpha and below 0.
[[gnu::always_inline]] inline Float8 premultipliedRange(const Float8& pixels) {
    const Float8 alpha = __builtin_shufflevector(pixels, pixels, 3, 3, 3, 3, 7, 7, 7, 7);
    const Float8 least{}, most = least + 255.0f;
    const Float8 belowAlpha = pixels < alpha ? pixels : alpha;
    const Float8 belowMost = belowAlpha < most ? belowAlpha : most;
    return belowMost > least ? belowMost : least;
}

[[gnu::always_inline]] inline Int8 roundedPixels(const Float8& pixels) {
    return __builtin_convertvector(pixels + 0.5f, Int8);
}

/// Writes channels from 0 to 255 as bytes.
void packBytes(const std::int32_t* channels, std::uint8_t* bytes, int count);

}  // namespace kestrio
