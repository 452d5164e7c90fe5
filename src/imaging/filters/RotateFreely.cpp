#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

#include "core/Parallel.h"
#include "core/Simd.h"
#include "imaging/Image.h"
#include "imaging/filters/CubicWeights.h"
#include "imaging/filters/PixelVectors.h"
#include "imaging/filters/Rotate.h"

namespace kestrio {

namespace {

// Places between two pixels are rounded to one of so many phases.
constexpr int phaseBits = 10;
constexpr int phases = 1 << phaseBits;

/// The weights of the two pixels before and the two after a place, each for the four channels of a
/// pixel, so that a row of four pixels is weighed by two multiplications.
struct PhaseWeights {
    alignas(32) std::array<float, 16> channels;
};

const std::array<PhaseWeights, phases>& phaseTable() {
    static const auto table = [] {
        std::array<PhaseWeights, phases> weights;
        for (int phase = 0; phase < phases; ++phase) {
            for (int i = 0; i < 16; ++i) {
                const double distance = double(phase) / phases + 1 - i / 4;
                weights[phase].channels[i] = static_cast<float>(catmullRom(distance));
            }
        }
        return weights;
    }();
    return table;
}

// Coordinates in the source have 32 binary digits after the point: stepping through a row adds up
// no error that shows.
using Coordinate = std::int64_t;
constexpr int coordinateBits = 32;

Coordinate toCoordinate(double pixels) {
    return std::llround(std::ldexp(pixels, coordinateBits));
}

/// A bitmap in one of Image's formats.
struct SourcePixels {
    const std::uint8_t* bytes;
    std::ptrdiff_t stride;
    int width, height;
};

/// One row of the canvas: where the centre of its first pixel lies in the source, counted from the
/// centre of the source's first pixel and rounded up to the next phase by half of one, and the way
/// to the next.
struct RowWalk {
    Coordinate x, y;
    Coordinate stepX, stepY;
    /// How wide a turned pixel is across an edge of the source, in pixels.
    double edgeWidth;
};

int wholePart(Coordinate coordinate) {
    return static_cast<int>(coordinate >> coordinateBits);
}

int phaseOf(Coordinate coordinate) {
    return static_cast<int>(coordinate >> (coordinateBits - phaseBits)) & (phases - 1);
}

/// The valid premultiplied pixel between four rows of four pixels.
[[gnu::always_inline]] inline Float4 interpolated(const std::uint8_t* const rows[4],
                                                  const PhaseWeights& across,
                                                  const PhaseWeights& down) {
    Float8 before{}, after{};
    for (int j = 0; j < 4; ++j) {
        const float weight = down.channels[j * 4];
        Byte16 pixels;
        std::memcpy(&pixels, rows[j], sizeof pixels);
        before += firstTwoPixels(pixels) * weight;
        after += lastTwoPixels(pixels) * weight;
    }
    const Float8 sum = before * loadFloats(across.channels.data()) +
                       after * loadFloats(across.channels.data() + 8);
    return firstPixel(premultipliedRange(pixelTwice(firstPixel(sum) + secondPixel(sum))));
}

/// How much of a pixel around `position` lies between 0 and `length`, taken for linear over its
/// width.
double coverage(double position, int length, double edgeWidth) {
    const double inside = std::min(position, length - position);
    return std::clamp(inside / edgeWidth + 0.5, 0.0, 1.0);
}

/// A pixel near or beyond the source's edges.
[[gnu::noinline]] Float4 edgePixel(const SourcePixels& source, const RowWalk& walk, Coordinate u,
                                   Coordinate v) {
    const double covered =
        coverage(std::ldexp(double(u), -coordinateBits) + 0.5, source.width, walk.edgeWidth) *
        coverage(std::ldexp(double(v), -coordinateBits) + 0.5, source.height, walk.edgeWidth);
    if (covered == 0) return Float4{};
    std::array<std::array<std::uint8_t, 16>, 4> block;
    const std::uint8_t* rows[4];
    for (int j = 0; j < 4; ++j) {
        const int y = std::clamp(wholePart(v) - 1 + j, 0, source.height - 1);
        for (int i = 0; i < 4; ++i) {
            const int x = std::clamp(wholePart(u) - 1 + i, 0, source.width - 1);
            std::memcpy(&block[j][i * 4], source.bytes + y * source.stride + std::ptrdiff_t(x) * 4,
                        4);
        }
        rows[j] = block[j].data();
    }
    const auto& table = phaseTable();
    return interpolated(rows, table[phaseOf(u)], table[phaseOf(v)]) * static_cast<float>(covered);
}

KESTRIO_SIMD void sampleRow(const SourcePixels& source, const RowWalk& walk,
                            const PhaseWeights* table, int count, std::int32_t* channels) {
    Coordinate u = walk.x, v = walk.y;
    for (int i = 0; i < count; ++i, u += walk.stepX, v += walk.stepY) {
        const int x = wholePart(u) - 1, y = wholePart(v) - 1;
        Float4 pixel;
        if (x >= 0 && y >= 0 && x + 4 <= source.width && y + 4 <= source.height) {
            const std::uint8_t* first = source.bytes + y * source.stride + std::ptrdiff_t(x) * 4;
            const std::uint8_t* const rows[4] = {
                first, first + source.stride, first + 2 * source.stride, first + 3 * source.stride};
            pixel = interpolated(rows, table[phaseOf(u)], table[phaseOf(v)]);
        } else {
            pixel = edgePixel(source, walk, u, v);
        }
        const Int8 rounded = roundedPixels(pixelTwice(pixel));
        std::memcpy(channels + std::ptrdiff_t(i) * 4, &rounded, 16);
    }
}

/// Walks the canvas's rows. A canvas pixel at (right, down) of the centre comes from the source's
/// pixel at (cosine * right + sine * down, cosine * down - sine * right) of its centre.
class CanvasWalk {
  public:
    CanvasWalk(const SourcePixels& source, double clockwiseDegrees, QSize canvas)
        : source_(source), canvas_(canvas) {
        const double radians = std::remainder(clockwiseDegrees, 360) * std::numbers::pi / 180;
        cosine_ = std::cos(radians);
        sine_ = std::sin(radians);
    }

    RowWalk row(int y) const {
        const double right = (1 - canvas_.width()) / 2.0, down = y + (1 - canvas_.height()) / 2.0;
        const double x = cosine_ * right + sine_ * down + (source_.width - 1) / 2.0;
        const double v = cosine_ * down - sine_ * right + (source_.height - 1) / 2.0;
        const double halfPhase = 0.5 / phases;
        return {toCoordinate(x + halfPhase), toCoordinate(v + halfPhase), toCoordinate(cosine_),
                toCoordinate(-sine_), std::abs(cosine_) + std::abs(sine_)};
    }

  private:
    SourcePixels source_;
    QSize canvas_;
    double cosine_, sine_;
};

}  // namespace

QImage rotated(const QImage& bitmap, double clockwiseDegrees, QSize canvas) {
    if (canvas.isEmpty()) return {};
    QImage turned(canvas, QImage::Format_ARGB32_Premultiplied);
    if (turned.isNull()) return turned;
    const QImage from = inCanonicalFormat(bitmap);
    if (from.isNull() || !std::isfinite(clockwiseDegrees)) {
        turned.fill(Qt::transparent);
        return turned;
    }
    const SourcePixels source{from.constBits(), from.bytesPerLine(), from.width(), from.height()};
    const CanvasWalk walk(source, clockwiseDegrees, canvas);
    uchar* const bits = turned.bits();
    const qsizetype stride = turned.bytesPerLine();
    parallelBands(canvas.height(), 4, [&](int first, int last) {
        std::vector<std::int32_t> channels(std::size_t(canvas.width()) * 4);
        for (int y = first; y < last; ++y) {
            sampleRow(source, walk.row(y), phaseTable().data(), canvas.width(), channels.data());
            packBytes(channels.data(), bits + y * stride, canvas.width() * 4);
        }
    });
    return turned;
}

}  // namespace kestrio
