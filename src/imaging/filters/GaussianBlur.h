#pragma once

#include <QImage>

#include "imaging/filters/Mask.h"

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

/// The same for coverage; outside the mask's bounds it counts as 0 and the bounds stay, so the
/// caller makes room for about 3 sigma around the shape.
void gaussianBlur(Mask& mask, double sigma);

}  // namespace kestrio
