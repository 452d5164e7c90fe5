#pragma once

#include <QByteArrayView>

namespace kestrio {

/// Throws ImageLoadError::damaged for a GIF file that ends before its trailer, holds no frame, or
/// whose first frame's codes are broken or fewer than its pixels: Qt's reader takes such files.
void checkGif(QByteArrayView bytes);

}  // namespace kestrio
