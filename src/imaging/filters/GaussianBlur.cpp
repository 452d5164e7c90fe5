#include "imaging/filters/GaussianBlur.h"

#include <QColorSpace>

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

void blurDirectly(const Plane<std::uint8_t>& plane, double sigma, const ByteTarget& target) {
    const GaussianTaps taps = gaussianTaps(sigma, std::numeric_limits<int>::max());
    const GaussianKernel kernel{taps, taps};
    const int strip = stripSamples / plane.channels;
    parallelBands(plane.height, 16, [&](int first, int last) {
        for (int left = 0; left < plane.width; left += strip) {
            const int width = std::min(strip, plane.width - left);
            ConvolvedRows<std::uint8_t> convolved(plane, kernel, left, width, first);
            for (int y = first; y < last; ++y) {
                roundToBytes(convolved.next(),
                             target.bytes + y * target.stride + left * plane.channels,
                             width * plane.channels);
            }
        }
    });
}

void blurShrunken(const Plane<std::uint8_t>& plane, double sigma, int step,
                  const ByteTarget& target) {
    const TentGrid grid(plane, step);
    const Plane<Fixed> cells = grid.cells();
    const double inCells = cellSigma(sigma, step);
    const GaussianKernel kernel{gaussianTaps(inCells, cells.width - 1),
                                gaussianTaps(inCells, cells.height - 1)};
    enlargeBySplines(cells, kernel, step, target);
}

void blur(const Plane<std::uint8_t>& plane, double sigma, const ByteTarget& target) {
    const int step = shrinkStep(sigma);
    if (step == 1) {
        blurDirectly(plane, sigma, target);
    } else {
        blurShrunken(plane, sigma, step, target);
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

// Shrinking has read all pixels before the first is written; direct convolution has not.
bool canWriteOverSource(double sigma) {
    return shrinkStep(sigma) > 1;
}

}  // namespace

void gaussianBlur(QImage& bitmap, double sigma) {
    if (bitmap.isNull() || !(sigma > 0)) return;
    bitmap = inCanonicalFormat(std::move(bitmap));
    const uchar* const pixels = bitmap.constBits();
    QImage source;
    if (!canWriteOverSource(sigma) || !bitmap.isDetached()) {
        QImage fresh = unwrittenLike(bitmap);
        source = std::exchange(bitmap, std::move(fresh));
    }
    const Plane<std::uint8_t> plane{pixels, bitmap.bytesPerLine(), bitmap.width(), bitmap.height(),
                                    4,      Edge::extended};
    blur(plane, sigma, {bitmap.bits(), bitmap.bytesPerLine(), bitmap.width(), bitmap.height(), 4});
}

void gaussianBlur(Mask& mask, double sigma) {
    if (mask.isEmpty() || !(sigma > 0)) return;
    const QRect& bounds = mask.bounds();
    const int width = bounds.width(), height = bounds.height();
    std::optional<Mask> copy;
    if (!canWriteOverSource(sigma)) copy = mask;
    const Mask& source = copy ? *copy : mask;
    const Plane<std::uint8_t> plane{source.row(bounds.top()), width, width, height, 1, Edge::zero};
    blur(plane, sigma, {mask.row(bounds.top()), width, width, height, 1});
}

}  // namespace kestrio
