#pragma once

#include <QByteArray>
#include <QImage>

#include "imaging/codecs/EncodeHooks.h"

namespace kestrio {

/// `bitmap` as a near-lossless WebP file, at most 16383 pixels a side. Throws as encodeImage().
QByteArray encodeWebP(const QImage& bitmap, const EncodeHooks& hooks = {});

}  // namespace kestrio
