#pragma once

#include "imaging/codecs/ImageDecoder.h"

namespace kestrio {

/// decodeImage() for bytes that begin with a TIFF header; the first page.
QImage decodeTiff(const QByteArray& bytes, const DecodeLimits& limits);

}  // namespace kestrio
