#pragma once

#include "imaging/codecs/ImageDecoder.h"

namespace kestrio {

/// decodeImage() for bytes that begin with a RIFF header of kind WEBP.
QImage decodeWebP(const QByteArray& bytes, const DecodeLimits& limits);

}  // namespace kestrio
