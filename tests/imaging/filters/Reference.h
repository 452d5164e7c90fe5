#pragma once

#include <QImage>
#include <QRectF>
#include <vector>

#include "imaging/filters/Mask.h"

/// The filters once more: slow, plain, in double precision, without rounding.
namespace kestrio::reference {

/// Rows of interleaved channels from 0 to 255; bitmaps have blue, green, red and alpha.
struct Picture {
    Picture(int width, int height, int channels);
    explicit Picture(const QImage& bitmap);
    explicit Picture(const Mask& mask);

    double& at(int x, int y, int channel);
    double at(int x, int y, int channel) const;
    /// The nearest pixel of the picture.
    double clamped(int x, int y, int channel) const;

    int width, height, channels;
    std::vector<double> samples;
};

/// The largest difference of any sample.
double largestDifference(const Picture& a, const Picture& b);

/// Convolved with a sampled Gaussian out to 6 sigma; beyond the edges the outermost pixels, or 0.
enum class Outside { edge, zero };
Picture gaussianBlur(const Picture& picture, double sigma, Outside outside);

Picture adjustSaturation(const Picture& picture, double factor);

/// channel * slope + offset, of colours that are not premultiplied; 1 is the full range.
Picture mapTones(const Picture& picture, double slope, double offset);
Picture adjustVibrance(const Picture& picture, double amount);
Picture sharpenLuminance(const Picture& picture, double sharpness, double threshold);
Picture reduceNoise(const Picture& picture, double noiseLevel);
/// Moved towards its own mirror image.
Picture dissolveUpsideDown(const Picture& picture, double amount);
Picture doubledByLanczos(const Picture& picture);

/// `source` drawn over `destination`, scaled into `target`; the coverage of the pixels is the
/// mask's where there is one, else their overlap with the target.
Picture drawScaled(const Picture& destination, const Picture& source, const QRectF& target,
                   const Mask* clip, double opacity);

Picture rotated(const Picture& picture, double clockwiseDegrees, QSize canvas);

}  // namespace kestrio::reference
