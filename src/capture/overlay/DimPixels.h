#pragma once

#include <QImage>
#include <QRect>

namespace kestrio {

/// Copies a part of a picture darkened to 70 percent into the same place of the target. Both are
/// 32 bits a pixel; `part` is in pixels and cut to what both have.
void copyDimmed(QImage& target, const QImage& source, QRect part);

/// Copies a part unchanged.
void copyPlain(QImage& target, const QImage& source, QRect part);

}  // namespace kestrio
