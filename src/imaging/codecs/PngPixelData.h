#pragma once

#include <QByteArray>
#include <QImage>

namespace kestrio {

/// The fast way for the commonest PNG pictures: 8-bit RGB or RGBA, not interlaced. Inflates the
/// chunks of pixel data that begin at `position` of the file in one go and restores their rows on
/// several cores where rows allow it. `bitmap` is RGB32 for RGB, else ARGB32. Returns false, with
/// the bitmap's pixels undefined, for anything that is not a flawless file: libpng then judges it.
bool readPixelData(const QByteArray& file, qsizetype position, QImage& bitmap);

}  // namespace kestrio
