#pragma once

#include <QByteArray>
#include <QImage>

#include "imaging/codecs/EncodeHooks.h"

namespace kestrio {

/// `bitmap` as a PNG file with exactly its pixels, tagged sRGB: 8-bit RGB where no pixel is
/// transparent, else 8-bit RGBA with straight colours. The bytes do not depend on the number of
/// threads. Throws as encodeImage().
QByteArray encodePng(const QImage& bitmap, const EncodeHooks& hooks = {});

}  // namespace kestrio
