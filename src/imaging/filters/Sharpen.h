#pragma once

#include <QImage>

namespace kestrio {

/// Unsharp masking in place, on the luma alone, so that edges get no coloured rims: what a Gaussian
/// of 1.5 pixels takes from the luma is added `sharpness` times to all channels. Of differences,
/// the first `threshold` (0 to 1) is left out, which keeps noise from being sharpened. Where alpha
/// changes nothing is an edge by that alone. 0, less or not a number changes nothing.
void sharpenLuminance(QImage& bitmap, double sharpness, double threshold = 0);

}  // namespace kestrio
