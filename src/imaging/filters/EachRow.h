#pragma once

#include <QImage>
#include <cstdint>

#include "core/Parallel.h"
#include "imaging/Image.h"

namespace kestrio {

/// Calls `work(pixels, y)` for every row of a bitmap, in parallel bands. The bitmap is brought into
/// one of Image's formats and detached first.
template <typename Work>
void eachRow(QImage& bitmap, const Work& work) {
    bitmap = inCanonicalFormat(std::move(bitmap));
    uchar* const bits = bitmap.bits();
    const qsizetype stride = bitmap.bytesPerLine();
    parallelBands(bitmap.height(), 16, [&](int first, int last) {
        for (int y = first; y < last; ++y)
            work(reinterpret_cast<std::uint32_t*>(bits + y * stride), y);
    });
}

}  // namespace kestrio
