#pragma once

#include <QImage>

namespace kestrio {

/// True where every pixel is opaque. Reads the pixels only where the format does not say.
bool isOpaque(const QImage& bitmap);

/// The same bitmap, relabelled as Format_RGB32 where every pixel is opaque; copies nothing.
QImage markedOpaque(QImage bitmap);

}  // namespace kestrio
