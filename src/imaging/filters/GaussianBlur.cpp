#include "imaging/filters/GaussianBlur.h"

#include <QColorSpace>
#include <memory>

#include "core/Parallel.h"
#include "imaging/Image.h"
#include "imaging/filters/SplineEnlargement.h"
#include "imaging/filters/TentGrid.h"

namespace kestrio {

namespace {

// A Gaussian of so many cells leaves less than half a level of what shrinking folds over.
constexpr double leastCells = 2.5;

/// How many pixels a cell spans; 1 where the picture is better convolved as it is.
int shrinkStep(double sigma) {
    int step = 1;
    while (step < TentGrid::largestStep && sigma >= leastCells * 2 * step)
        step *= 2;
    return step;
}

/// Of two Gaussian-like blurs in a row the variances add up, so the cells only need what shrinking
/// and enlarging leave.
double cellSigma(double sigma, int step) {
    const double inCells = sigma / step;
    return std::sqrt(inCells * inCells - TentGrid::addedVariance(step) - splineVariance);
}

// The rows that the largest direct kernel needs fit the first-level cache at this width.
constexpr int stripSamples = 1024;
constexpr int tileRows = 272;

/// `target` is not what the plane shows.
void blurDirectly(const Plane<std::uint8_t>& plane, double sigma, const PixelRegion& region,
                  const ByteTarget& target) {
    const GaussianTaps taps = gaussianTaps(sigma, std::numeric_limits<int>::max());
    const GaussianKernel kernel{taps, taps};
    const int strip = stripSamples / plane.channels;
    const std::vector<QRect> tiles = region.tiles({strip, strip, tileRows, taps.reach() / 2});
    parallelBands(static_cast<int>(tiles.size()), 1, [&](int first, int last) {
        for (int i = first; i < last; ++i) {
            const QRect& tile = tiles[i];
            ConvolvedRows<std::uint8_t> convolved(plane, kernel, tile.left(), tile.width(),
                                                  tile.top());
            for (int y = tile.top(); y <= tile.bottom(); ++y) {
                roundToBytes(convolved.next(),
                             target.bytes + y * target.stride + tile.left() * plane.channels,
                             tile.width() * plane.channels);
            }
        }
    });
}

void copyPixels(const PixelRegion& region, const std::uint8_t* from, const ByteTarget& to) {
    for (const PixelRegion::Band& band : region.bands()) {
        for (int y = band.top; y < band.end; ++y) {
            for (const PixelRegion::Run& run : band.runs) {
                const std::ptrdiff_t start = y * to.stride + run.left * to.channels;
                std::copy_n(from + start, (run.end - run.left) * to.channels, to.bytes + start);
            }
        }
    }
}

/// Direct convolution of a plane that is its own target goes through other memory; pages of it that
/// nothing is written to cost nothing.
void blurDirectlyInPlace(const Plane<std::uint8_t>& plane, double sigma, const PixelRegion& region,
                         const ByteTarget& target) {
    const auto blurred =
        std::make_unique_for_overwrite<std::uint8_t[]>(target.stride * target.height);
    ByteTarget aside = target;
    aside.bytes = blurred.get();
    blurDirectly(plane, sigma, region, aside);
    copyPixels(region, blurred.get(), target);
}

PixelRegion grown(const PixelRegion& region, int columns, int rows, const QRect& limit) {
    std::vector<QRect> rects = region.rects();
    for (QRect& rect : rects)
        rect = rect.adjusted(-columns, -rows, columns, rows);
    return PixelRegion(rects, limit);
}

void blurShrunken(const Plane<std::uint8_t>& plane, double sigma, int step,
                  const PixelRegion& region, const ByteTarget& target) {
    const QRect cells = TentGrid::allCells(plane, step);
    const double inCells = cellSigma(sigma, step);
    const GaussianKernel kernel{gaussianTaps(inCells, cells.width() - 1),
                                gaussianTaps(inCells, cells.height() - 1)};
    const PixelRegion needed = grown(splineCells(region, step, cells), kernel.horizontal.reach(),
                                     kernel.vertical.reach(), cells);
    // All pixels are read before the first is written.
    const TentGrid grid(plane, step, needed);
    enlargeBySplines(grid.cells(), kernel, step, region, target);
}

void blur(const Plane<std::uint8_t>& plane, double sigma, const PixelRegion& region,
          const ByteTarget& target) {
    const int step = shrinkStep(sigma);
    if (step > 1) {
        blurShrunken(plane, sigma, step, region, target);
    } else if (plane.samples == target.bytes) {
        blurDirectlyInPlace(plane, sigma, region, target);
    } else {
        blurDirectly(plane, sigma, region, target);
    }
}

/// A bitmap of the same kind whose pixels are still to be written.
QImage unwrittenLike(const QImage& bitmap) {
    QImage fresh(bitmap.size(), bitmap.format());
    if (fresh.isNull()) throw std::bad_alloc();
    fresh.setDevicePixelRatio(bitmap.devicePixelRatio());
    fresh.setColorSpace(bitmap.colorSpace());
    return fresh;
}

Plane<std::uint8_t> planeOf(const uchar* pixels, const QImage& bitmap) {
    return {pixels, bitmap.bytesPerLine(), bitmap.width(), bitmap.height(), 4, Edge::extended};
}

ByteTarget targetOf(QImage& bitmap) {
    return {bitmap.bits(), bitmap.bytesPerLine(), bitmap.width(), bitmap.height(), 4};
}

}  // namespace

void gaussianBlur(QImage& bitmap, double sigma) {
    if (bitmap.isNull() || !(sigma > 0)) return;
    bitmap = inCanonicalFormat(std::move(bitmap));
    const uchar* const pixels = bitmap.constBits();
    QImage source;
    if (shrinkStep(sigma) == 1 || !bitmap.isDetached()) {
        QImage fresh = unwrittenLike(bitmap);
        source = std::exchange(bitmap, std::move(fresh));
    }
    const PixelRegion everything({bitmap.rect()}, bitmap.rect());
    blur(planeOf(pixels, bitmap), sigma, everything, targetOf(bitmap));
}

void gaussianBlur(QImage& bitmap, double sigma, const PixelRegion& region) {
    const PixelRegion inside = region.clipped(bitmap.rect());
    if (inside.isEmpty() || !(sigma > 0)) return;
    bitmap = inCanonicalFormat(std::move(bitmap));
    const ByteTarget target = targetOf(bitmap);
    blur(planeOf(target.bytes, bitmap), sigma, inside, target);
}

void gaussianBlur(Mask& mask, double sigma) {
    if (mask.isEmpty() || !(sigma > 0)) return;
    const QRect& bounds = mask.bounds();
    const int width = bounds.width(), height = bounds.height();
    const QRect all(0, 0, width, height);
    std::uint8_t* const coverage = mask.row(bounds.top());
    const Plane<std::uint8_t> plane{coverage, width, width, height, 1, Edge::zero};
    blur(plane, sigma, PixelRegion({all}, all), {coverage, width, width, height, 1});
}

}  // namespace kestrio
