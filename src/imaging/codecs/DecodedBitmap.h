#pragma once

#include <QColorSpace>
#include <QImage>

#include "imaging/codecs/ImageDecoder.h"

namespace kestrio {

/// What a bitmap of this size takes, in bytes.
qint64 bitmapBytes(QSize size);

/// Refuses a header's claim before anything is allocated for it. `workingMemory` is what the
/// decoder holds beside the bitmap, in bytes. Throws ImageLoadError::tooLarge beyond the limits and
/// ImageLoadError::damaged for a side below 1.
void checkClaimedSize(QSize claimed, const DecodeLimits& limits, qint64 workingMemory = 0);

/// An uninitialised bitmap; throws ImageLoadError::damaged where memory does not suffice.
QImage allocateBitmap(QSize size, QImage::Format format);

/// `bitmap` (RGB32, straight ARGB32 or ARGB32_Premultiplied) taken as colours of `profile`, as an
/// RGB32 or ARGB32_Premultiplied bitmap in sRGB. An invalid profile counts as sRGB.
QImage finishedBitmap(QImage bitmap, const QColorSpace& profile);

/// The colour space of an ICC profile; invalid where it is missing or unusable.
QColorSpace colorSpaceOf(const QByteArray& iccProfile);

}  // namespace kestrio
