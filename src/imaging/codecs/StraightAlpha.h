#pragma once

#include <QtGlobal>

namespace kestrio {

/// Writes `count` premultiplied 0xAARRGGBB words with their colours divided by alpha: of 1 <= a <=
/// 254 a colour c becomes min(255, (c * 255 + a / 2) / a) in integers; other pixels are copied.
void unpremultiplyRow(const quint32* source, quint32* target, int count);

/// Writes `count` words with an alpha of 255, whatever theirs is.
void opaqueRow(const quint32* source, quint32* target, int count);

}  // namespace kestrio
