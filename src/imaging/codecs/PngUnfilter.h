#pragma once

#include <QtGlobal>

namespace kestrio {

/// Restores one row of an 8-bit RGB (`pixelBytes` 3) or RGBA (4) PNG picture as 0xAARRGGBB words
/// with straight alpha, opaque for RGB. `filtered` is the row's filter byte and what follows it;
/// `above` is the restored row above, zeros for the first. Returns false for an unknown filter.
bool unfilterRow(const uchar* filtered, int pixelBytes, const quint32* above, quint32* target,
                 int count);

/// Whether a row with this filter byte is restored without looking at the row above.
inline bool standsAlone(uchar filterByte) {
    return filterByte <= 1;
}

}  // namespace kestrio
