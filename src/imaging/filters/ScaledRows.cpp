#include "imaging/filters/ScaledRows.h"

#include <cstring>

#include "core/Simd.h"
#include "imaging/filters/PixelVectors.h"

namespace kestrio {

namespace {

/// Four rows of bytes and their weights.
struct RowGroup {
    const std::uint8_t* rows[4];
    float weights[4];
};

KESTRIO_SIMD void sumRows(const RowGroup& group, float* __restrict sums, int count) {
    const auto [a, b, c, d] = group.rows;
    const auto [wa, wb, wc, wd] = group.weights;
    for (int i = 0; i < count; ++i) {
        sums[i] = a[i] * wa + b[i] * wb + c[i] * wc + d[i] * wd;
    }
}

KESTRIO_SIMD void addRows(const RowGroup& group, float* __restrict sums, int count) {
    const auto [a, b, c, d] = group.rows;
    const auto [wa, wb, wc, wd] = group.weights;
    for (int i = 0; i < count; ++i) {
        sums[i] += a[i] * wa + b[i] * wb + c[i] * wc + d[i] * wd;
    }
}

/// Sums a run of source pixels, the first of which is the first target pixel's, to `count` target
/// pixels, two by two; writes one more where `count` is odd.
KESTRIO_SIMD void sumFourTaps(const float* run, const CubicWeights& columns, int first, int count,
                              std::int32_t* __restrict channels) {
    const float* const origin = run - std::ptrdiff_t(columns.source(first)) * 4;
    for (int i = 0; i < count; i += 2) {
        const float* a = origin + std::ptrdiff_t(columns.source(first + i)) * 4;
        const float* b = origin + std::ptrdiff_t(columns.source(first + i + 1)) * 4;
        const Float8 w = loadFloats(columns.weights(first + i));
        const Float8 sum =
            loadFloats(a, b) * __builtin_shufflevector(w, w, 0, 0, 0, 0, 4, 4, 4, 4) +
            loadFloats(a + 4, b + 4) * __builtin_shufflevector(w, w, 1, 1, 1, 1, 5, 5, 5, 5) +
            loadFloats(a + 8, b + 8) * __builtin_shufflevector(w, w, 2, 2, 2, 2, 6, 6, 6, 6) +
            loadFloats(a + 12, b + 12) * __builtin_shufflevector(w, w, 3, 3, 3, 3, 7, 7, 7, 7);
        const Int8 pixels = roundedPixels(premultipliedRange(sum));
        std::memcpy(channels + std::ptrdiff_t(i) * 4, &pixels, sizeof pixels);
    }
}

/// The same for any number of taps.
KESTRIO_SIMD void sumTaps(const float* run, const CubicWeights& columns, int first, int count,
                          std::int32_t* __restrict channels) {
    const float* const origin = run - std::ptrdiff_t(columns.source(first)) * 4;
    for (int i = 0; i < count; i += 2) {
        const float* a = origin + std::ptrdiff_t(columns.source(first + i)) * 4;
        const float* b = origin + std::ptrdiff_t(columns.source(first + i + 1)) * 4;
        const float* weightsA = columns.weights(first + i);
        const float* weightsB = columns.weights(first + i + 1);
        Float8 sum{};
        for (int tap = 0; tap < columns.taps(); ++tap) {
            const float wa = weightsA[tap], wb = weightsB[tap];
            sum += loadFloats(a + std::ptrdiff_t(tap) * 4, b + std::ptrdiff_t(tap) * 4) *
                   Float8{wa, wa, wa, wa, wb, wb, wb, wb};
        }
        const Int8 pixels = roundedPixels(premultipliedRange(sum));
        std::memcpy(channels + std::ptrdiff_t(i) * 4, &pixels, sizeof pixels);
    }
}

bool isWhole(double value) {
    return value == std::floor(value);
}

}  // namespace

ScaledRows::ScaledRows(const QImage& source, const QRectF& target, const QRect& area)
    : source_(source),
      areaOrigin_(area.topLeft()),
      columns_({target.left(), target.width(), source.width(), area.left(), area.width()}),
      rows_({target.top(), target.height(), source.height(), area.top(), area.height()}),
      copies_(target.width() == source.width() && target.height() == source.height() &&
              isWhole(target.left()) && isWhole(target.top())),
      copyOrigin_(copies_ ? target.topLeft().toPoint() : QPoint()) {}

void ScaledRows::read(int x, int y, int count, Scratch& scratch, std::uint32_t* pixels) const {
    if (copies_) {
        const auto* row =
            reinterpret_cast<const std::uint32_t*>(source_.constScanLine(y - copyOrigin_.y()));
        std::copy_n(row + (x - copyOrigin_.x()), count, pixels);
        return;
    }
    const int column = x - areaOrigin_.x();
    const int firstSource = columns_.source(column);
    const int lastSource = columns_.source(column + count - 1) + columns_.taps();
    const int values = (lastSource - firstSource) * 4;
    scratch.sourceRun.resize(values);
    scratch.targetRun.resize((std::size_t(count) + 1) * 4);

    const int row = y - areaOrigin_.y();
    for (int tap = 0; tap < rows_.taps(); tap += 4) {
        RowGroup group;
        for (int i = 0; i < 4; ++i) {
            const int used = std::min(tap + i, rows_.taps() - 1);
            group.rows[i] = source_.constScanLine(rows_.source(row) + used) + firstSource * 4;
            group.weights[i] = tap + i < rows_.taps() ? rows_.weights(row)[used] : 0.0f;
        }
        (tap == 0 ? sumRows : addRows)(group, scratch.sourceRun.data(), values);
    }
    (columns_.taps() == 4 ? sumFourTaps : sumTaps)(scratch.sourceRun.data(), columns_, column,
                                                   count, scratch.targetRun.data());
    packBytes(scratch.targetRun.data(), reinterpret_cast<std::uint8_t*>(pixels), count * 4);
}

}  // namespace kestrio
