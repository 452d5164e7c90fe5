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

}  // namespace kestrio
