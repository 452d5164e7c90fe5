#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>
#include <optional>

#include "imaging/codecs/ImageLoadError.h"

namespace kestrio {

/// What a picture may claim before any of its pixels are allocated.
struct DecodeLimits {
    /// Bytes that decoding may hold at once beside the file's own: the bitmap, 4 a pixel, and what
    /// its decoder needs meanwhile.
    qint64 memory = 1'000'000'000;
    /// The longer side, in pixels.
    int side = 131072;
};

/// The picture in `bytes`, a whole PNG, JPEG, WebP, BMP, GIF, ICO, PPM or TIFF file (the first
/// frame of an animation), in one of the two formats that Image allows: RGB32 where the file's
/// format has no alpha, else ARGB32_Premultiplied. Colours are converted from an embedded profile
/// to sRGB and the orientation that a camera noted is applied. Throws ImageLoadError.
QImage decodeImage(const QByteArray& bytes, const DecodeLimits& limits = {});

/// The same for what a style carries: a null picture where there are no bytes or none that can be
/// decoded.
QImage decodeImageOrNull(const std::optional<QByteArray>& bytes);

/// Endings of files that decodeImage() reads, without dots.
QStringList readableSuffixes();

/// The bytes of a file that should hold a picture. Throws ImageLoadError::unreadable, also for
/// folders, pipes and devices and for more than 512 MiB, before anything is read.
QByteArray readImageFile(const QString& path);

/// The picture in a file, as decodeImage(). Throws ImageLoadError.
QImage loadImageFile(const QString& path);

}  // namespace kestrio
