#pragma once

#include <QByteArray>
#include <QImage>

#include "imaging/ExportFormat.h"
#include "imaging/codecs/EncodeHooks.h"

namespace kestrio {

/// The bytes of a whole file that holds `bitmap`, which is in one of the two formats that Image
/// allows. Throws ExportError: renderingFailed for a null bitmap or one that the format cannot
/// hold, userCancelled once the hooks' stop is requested.
QByteArray encodeImage(const QImage& bitmap, ExportFormat format, const EncodeHooks& hooks = {});

/// The longer side that a picture file of this format may have, in pixels.
int longestSide(ExportFormat format);

/// Throws ExportError::renderingFailed, which says what else to do, where a picture of this size
/// does not fit into the format: before it is composed and not after.
void requireEncodable(QSize pixels, ExportFormat format);

}  // namespace kestrio
