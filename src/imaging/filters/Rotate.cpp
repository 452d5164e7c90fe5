#include "imaging/filters/Rotate.h"

#include "core/Parallel.h"
#include "imaging/Image.h"

namespace kestrio {

namespace {

// 32 pixels of a row are two cache lines, and 32 rows of them stay in the first-level cache while
// they are read across.
constexpr int tileSize = 32;

/// Steps through the source, in pixels, that belong to one step right and one step down in the
/// turned picture, and the source pixel of its top left corner.
struct QuarterWalk {
    const std::uint32_t* origin;
    std::ptrdiff_t right;
    std::ptrdiff_t down;
};

QuarterWalk quarterWalk(const QImage& source, int turns) {
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(source.constBits());
    const std::ptrdiff_t stride = source.bytesPerLine() / 4;
    const std::ptrdiff_t lastRow = (source.height() - 1) * stride;
    const std::ptrdiff_t lastColumn = source.width() - 1;
    switch (turns) {
        case 1:
            return {pixels + lastRow, -stride, 1};
        case 2:
            return {pixels + lastRow + lastColumn, -1, -stride};
        default:
            return {pixels + lastColumn, stride, -1};
    }
}

void turnTile(const QuarterWalk& walk, std::uint32_t* target, std::ptrdiff_t stride, QRect tile) {
    for (int y = tile.top(); y <= tile.bottom(); ++y) {
        const std::uint32_t* from = walk.origin + y * walk.down + tile.left() * walk.right;
        std::uint32_t* to = target + y * stride + tile.left();
        for (int x = 0; x < tile.width(); ++x) {
            to[x] = from[x * walk.right];
        }
    }
}

}  // namespace

QImage rotatedQuarterTurns(const QImage& bitmap, int clockwiseTurns) {
    const QImage source = inCanonicalFormat(bitmap);
    const int turns = ((clockwiseTurns % 4) + 4) % 4;
    if (source.isNull() || turns == 0) return source;
    QImage turned(turns == 2 ? source.size() : source.size().transposed(), source.format());
    if (turned.isNull()) return turned;
    const QuarterWalk walk = quarterWalk(source, turns);
    auto* const target = reinterpret_cast<std::uint32_t*>(turned.bits());
    const std::ptrdiff_t stride = turned.bytesPerLine() / 4;
    const int tileRows = (turned.height() + tileSize - 1) / tileSize;
    parallelBands(tileRows, 1, [&](int first, int last) {
        for (int top = first * tileSize; top < last * tileSize; top += tileSize) {
            for (int left = 0; left < turned.width(); left += tileSize) {
                const QRect tile(left, top, tileSize, tileSize);
                turnTile(walk, target, stride, tile & turned.rect());
            }
        }
    });
    return turned;
}

}  // namespace kestrio
