#pragma once

#include <QImage>
#include <vector>

#include "imaging/filters/Mask.h"

namespace kestrio {

struct NamedPicture {
    const char* name;
    QImage bitmap;
};

/// Pictures that bring out different faults: a smooth ramp, a screenshot's text, noise with alpha,
/// hard edges and stripes that beat with shrunken grids.
std::vector<NamedPicture> filterPictures(QSize size);

/// Premultiplied noise of all alphas.
QImage noise(QSize size);

/// Part of a real screenshot; opaque.
QImage screenshotPart(QRect part);

/// No colour above its alpha.
bool isPremultiplied(const QImage& bitmap);

/// Runs the filter on copies of the bitmap with one thread and with the default; true where all
/// bytes agree.
bool sameWithAnyThreads(const QImage& bitmap, const std::function<void(QImage&)>& filter);

}  // namespace kestrio
