#pragma once

#include "imaging/codecs/ImageDecoder.h"

namespace kestrio {

/// decodeImage() for bytes that begin with a JPEG start-of-image marker.
QImage decodeJpeg(const QByteArray& bytes, const DecodeLimits& limits);

}  // namespace kestrio
