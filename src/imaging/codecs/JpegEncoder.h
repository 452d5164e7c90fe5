#pragma once

#include <QByteArray>
#include <QImage>

#include "imaging/codecs/EncodeHooks.h"

namespace kestrio {

/// `bitmap` as a JPEG file of quality 90 with full chroma resolution, since screenshots are mostly
/// text. Transparent pixels are laid over white. Throws as encodeImage().
QByteArray encodeJpeg(const QImage& bitmap, const EncodeHooks& hooks = {});

}  // namespace kestrio
