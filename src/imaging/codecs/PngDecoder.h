#pragma once

#include "imaging/codecs/ImageDecoder.h"

namespace kestrio {

/// decodeImage() for bytes that begin with the PNG signature.
QImage decodePng(const QByteArray& bytes, const DecodeLimits& limits);

}  // namespace kestrio
