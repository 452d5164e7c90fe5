#pragma once

#include <QByteArrayView>

namespace kestrio {

/// Throws ImageLoadError::damaged for a BMP file whose data ends before its last row or whose
/// pixels do not begin behind its header: Qt's reader takes such files and leaves what is missing
/// undefined. Headers that Qt refuses anyway pass.
void checkBmp(QByteArrayView bytes);

}  // namespace kestrio
