#pragma once

#include <QImage>

#include "imaging/filters/GrayCopy.h"

namespace kestrio {

/// What a picture looks like at a glance: its brightness in 64 by 64 pixels, and its own size.
struct FrameThumbnail {
    GrayPixels gray;
    QSize size;
};

FrameThumbnail frameThumbnail(const QImage& picture);

/// How much two pictures of one size look alike: 1 minus the mean difference of their thumbnails as
/// a share of the whole range. 0 for pictures of different sizes and for null pictures.
double frameSimilarity(const FrameThumbnail& a, const FrameThumbnail& b);
double frameSimilarity(const QImage& a, const QImage& b);

}  // namespace kestrio
