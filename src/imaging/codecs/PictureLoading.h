#pragma once

#include "core/Task.h"

#include <QImage>

namespace kestrio {

/// A picture file as it lies on the disk, and its decoded pixels.
struct LoadedPicture {
    QByteArray data;
    QImage bitmap;
};

/// Reads and decodes a file off the main loop; a disk that hangs is given up. Throws ImageLoadError
/// and StorageTimeout.
Task<LoadedPicture> loadPicture(QString path);

}  // namespace kestrio
