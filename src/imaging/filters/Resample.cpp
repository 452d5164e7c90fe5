#include "imaging/filters/Resample.h"

#include "core/Parallel.h"
#include "core/Simd.h"
#include "imaging/Image.h"
#include "imaging/filters/ScaledRows.h"

namespace kestrio {

namespace {

// Long enough to make the calls per run cheap, short enough for the first-level cache.
constexpr int runLength = 256;

/// How much of the pixels of a run is drawn, 0 to 1.
using RunCoverage = std::array<float, runLength>;

KESTRIO_SIMD void blendRun(std::uint32_t* __restrict below, const std::uint32_t* __restrict above,
                           const float* __restrict coverage, int count) {
    for (int x = 0; x < count; ++x) {
        const std::uint32_t from = above[x], onto = below[x];
        const float cover = coverage[x];
        const float keep = 1.0f - static_cast<std::int32_t>(from >> 24) * (cover / 255.0f);
        const auto mix = [&](int shift) {
            const float upper = static_cast<std::int32_t>(from >> shift & 255u);
            const float lower = static_cast<std::int32_t>(onto >> shift & 255u);
            const float sum = upper * cover + lower * keep + 0.5f;
            return static_cast<std::uint32_t>(static_cast<std::int32_t>(sum)) << shift;
        };
        below[x] = mix(0) | mix(8) | mix(16) | mix(24);
    }
}

/// How much of pixel `position` lies between `start` and `end`.
double overlap(int position, double start, double end) {
    return std::clamp(std::min(end, position + 1.0) - std::max<double>(start, position), 0.0, 1.0);
}

enum class Covered { nowhere, partly, fully };

struct CoverageRange {
    std::uint8_t least = 255, most = 0;
};

KESTRIO_SIMD CoverageRange rangeOf(const std::uint8_t* coverage, int count) {
    std::uint8_t least = 255, most = 0;
    for (int x = 0; x < count; ++x) {
        least = coverage[x] < least ? coverage[x] : least;
        most = coverage[x] > most ? coverage[x] : most;
    }
    return {least, most};
}

KESTRIO_SIMD void scaleCoverage(const std::uint8_t* coverage, float factor,
                                float* __restrict scaled, int count) {
    for (int x = 0; x < count; ++x)
        scaled[x] = coverage[x] * factor;
}

/// How much of each pixel a drawing covers, its opacity included.
class DrawCoverage {
  public:
    explicit DrawCoverage(const ScaledDraw& draw) : draw_(draw) {}

    /// Judges a run of pixels and fills `coverage` where they are partly covered.
    Covered read(int x, int y, int count, RunCoverage& coverage) const {
        return draw_.clip ? readMask(x, y, count, coverage) : readEdges(x, y, count, coverage);
    }

  private:
    Covered readMask(int x, int y, int count, RunCoverage& coverage) const {
        const std::uint8_t* mask = draw_.clip->row(y) + (x - draw_.clip->bounds().left());
        const auto [least, most] = rangeOf(mask, count);
        if (most == 0) return Covered::nowhere;
        if (least == 255 && draw_.opacity == 1) return Covered::fully;
        scaleCoverage(mask, static_cast<float>(draw_.opacity / 255), coverage.data(), count);
        return Covered::partly;
    }

    Covered readEdges(int x, int y, int count, RunCoverage& coverage) const {
        const QRectF& target = draw_.target;
        const double row = overlap(y, target.top(), target.bottom()) * draw_.opacity;
        if (row == 1 && x >= target.left() && x + count <= target.right()) return Covered::fully;
        for (int i = 0; i < count; ++i) {
            coverage[i] = static_cast<float>(row * overlap(x + i, target.left(), target.right()));
        }
        return Covered::partly;
    }

    const ScaledDraw& draw_;
};

bool isDrawable(const QRectF& target) {
    return std::isfinite(target.x()) && std::isfinite(target.y()) &&
           std::isfinite(target.width()) && std::isfinite(target.height()) && target.width() > 0 &&
           target.height() > 0;
}

/// The pixels of `limit` that the target touches.
QRect touchedPixels(const QRectF& target, const QRect& limit) {
    const QRectF inside = target & QRectF(limit);
    if (inside.isEmpty()) return {};
    return inside.toAlignedRect() & limit;
}

}  // namespace

void drawScaled(QImage& destination, const QImage& source, const ScaledDraw& draw) {
    if (source.isNull() || destination.isNull() || !isDrawable(draw.target) ||
        !(draw.opacity > 0)) {
        return;
    }
    const QRect limit = draw.clip ? draw.clip->bounds() & destination.rect() : destination.rect();
    const QRect area = touchedPixels(draw.target, limit);
    if (area.isEmpty()) return;
    ScaledDraw inRange = draw;
    inRange.opacity = std::min(draw.opacity, 1.0);
    // Also keeps the pixels alive when a bitmap is drawn onto itself.
    const QImage from = inCanonicalFormat(source);
    destination = inCanonicalFormat(std::move(destination));
    const ScaledRows scaled(from, inRange.target, area);
    const DrawCoverage coverage(inRange);
    const bool opaque = from.format() == QImage::Format_RGB32;
    uchar* const bits = destination.bits();
    const qsizetype stride = destination.bytesPerLine();
    parallelBands(area.height(), 4, [&](int first, int last) {
        ScaledRows::Scratch scratch;
        RunCoverage covered;
        std::array<std::uint32_t, runLength> run;
        for (int y = area.top() + first; y < area.top() + last; ++y) {
            auto* const row = reinterpret_cast<std::uint32_t*>(bits + y * stride);
            for (int x = area.left(); x <= area.right(); x += runLength) {
                const int count = std::min(runLength, area.right() + 1 - x);
                const Covered kind = coverage.read(x, y, count, covered);
                if (kind == Covered::nowhere) continue;
                if (opaque && kind == Covered::fully) {
                    scaled.read(x, y, count, scratch, row + x);
                } else {
                    if (kind == Covered::fully) covered.fill(1);
                    scaled.read(x, y, count, scratch, run.data());
                    blendRun(row + x, run.data(), covered.data(), count);
                }
            }
        }
    });
}

QImage scaledTo(const QImage& source, QSize size) {
    if (source.isNull() || size.isEmpty()) return {};
    const QImage from = inCanonicalFormat(source);
    if (from.size() == size) return from;
    QImage scaled(size, from.format());
    if (scaled.isNull()) return scaled;
    const ScaledRows rows(from, scaled.rect(), scaled.rect());
    uchar* const bits = scaled.bits();
    const qsizetype stride = scaled.bytesPerLine();
    parallelBands(size.height(), 4, [&](int first, int last) {
        ScaledRows::Scratch scratch;
        for (int y = first; y < last; ++y) {
            auto* const row = reinterpret_cast<std::uint32_t*>(bits + y * stride);
            for (int x = 0; x < size.width(); x += runLength) {
                const int count = std::min(runLength, size.width() - x);
                rows.read(x, y, count, scratch, row + x);
            }
        }
    });
    return scaled;
}

}  // namespace kestrio
