#pragma once

#include "core/CodableColor.h"

#include <QImage>
#include <cstdint>

namespace kestrio::RenderingConstants::Noise {

/// One grain.
struct Sample {
    double normalizedX;  ///< 0 to 1 across the picture
    double normalizedY;  ///< 0 to 1 down the picture
    double alphaUnit;    ///< 0 to 1
    bool isLight;

    bool operator==(const Sample&) const = default;
};

/// "KESTRIO" in ASCII and a number: fixed seeds make the same grain at every run.
inline constexpr std::uint64_t backdropSeed = 0x4b45535452494f01;
inline constexpr std::uint64_t patternSeed = 0x4b45535452494f02;

inline constexpr int backdropLimit = 10000;
inline constexpr int patternLimit = 5000;

/// An endless stream of grains from SplitMix64 (G. Steele, D. Lea, C. Flood, "Fast Splittable
/// Pseudorandom Number Generators", 2014); four outputs make one grain.
class Generator {
  public:
    explicit Generator(std::uint64_t seed) : state_(seed) {}

    Sample next();

  private:
    std::uint64_t nextWord();
    double nextUnit();

    std::uint64_t state_;
};

}  // namespace kestrio::RenderingConstants::Noise

namespace kestrio {

/// The grain of the noise effect over the whole bitmap: light and dark squares of `scale` pixels.
/// `strength` is 0 to 1, `scale` pixels a point.
void drawBackdropGrain(QImage& bitmap, double strength, double scale);

/// The grain of the noise pattern: squares of `scale` pixels in one colour. `intensity` is 0 to 1
/// and sets their number; the colour carries it in its alpha already.
void drawPatternGrain(QImage& bitmap, const CodableColor& color, double intensity, double scale);

}  // namespace kestrio
