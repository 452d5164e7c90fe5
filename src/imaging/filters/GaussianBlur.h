#pragma once

#include <QImage>

#include "imaging/filters/Mask.h"
#include "imaging/filters/PixelRegion.h"

namespace kestrio {

/// Blurs all four channels in place with a Gaussian of standard deviation `sigma` pixels, any size
/// of it; 0, less or not a number leaves the bitmap alone. Beyond its edges the bitmap continues
/// with its outermost pixels. Flat pictures stay exactly flat, opaque ones opaque, and
/// premultiplied colours stay below their alpha.
///
/// Small sigmas convolve directly. Large ones shrink the picture by a power of two, convolve the
/// small picture and enlarge it with cubic B-splines: a wide Gaussian leaves no frequencies that
/// the small picture could not hold, and its own kernel is narrowed by the variance that shrinking
/// and enlarging add (after P. Burt and E. Adelson, "The Laplacian Pyramid", 1983; M. Unser,
/// "Splines: A Perfect Fit", 1999). The result lies within 2/255 of the exact Gaussian.
void gaussianBlur(QImage& bitmap, double sigma);

/// Blurs only the pixels of `region` and reads only these and what the kernel reaches around them;
/// each gets the very value that blurring the whole bitmap gives it. No other pixel changes.
void gaussianBlur(QImage& bitmap, double sigma, const PixelRegion& region);

/// Blurs coverage; outside the mask's bounds it counts as 0 and the bounds stay, so the
/// caller makes room for about 3 sigma around the shape.
void gaussianBlur(Mask& mask, double sigma);

}  // namespace kestrio
