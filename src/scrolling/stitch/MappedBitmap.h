#pragma once

#include <QImage>

namespace kestrio {

/// A bitmap whose pixels lie in a file without a name in the temporary folder, which goes with the
/// last copy of the bitmap. The space is reserved before anything is written, so that a full disk
/// is met here: the bitmap is null then, and where the size is empty. The pixels are clear at
/// first.
QImage makeMappedBitmap(QSize size, QImage::Format format);

}  // namespace kestrio
