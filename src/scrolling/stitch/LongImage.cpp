#include "scrolling/stitch/LongImage.h"

#include <algorithm>
#include <cstring>

#include "scrolling/stitch/MappedBitmap.h"

namespace kestrio {

namespace {

constexpr int pixelBytes = 4;

// A picture is opaque only where all of its parts are.
QImage::Format commonFormat(const std::vector<const Segment*>& parts) {
    const bool isOpaque = std::ranges::all_of(
        parts, [](const Segment* part) { return part->format == QImage::Format_RGB32; });
    return isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
}

bool copyRows(const Segment& part, QImage& target, int top) {
    QImage rows = part.storage.decoded();
    if (rows.width() != target.width() || rows.height() != part.height) return false;
    rows.convertTo(target.format());
    for (int y = 0; y < rows.height(); ++y)
        std::memcpy(target.scanLine(top + y), rows.constScanLine(y),
                    std::size_t(target.width()) * pixelBytes);
    return true;
}

}  // namespace

QImage composeLongImage(const LongImageParts& parts) {
    std::vector<const Segment*> all;
    for (const Segment& segment : parts.segments)
        all.push_back(&segment);
    if (parts.footer) all.push_back(parts.footer);
    int height = 0;
    for (const Segment* part : all)
        height += part->height;
    const QSize size(parts.width, height);
    if (size.isEmpty()) return {};
    const qint64 bytes = qint64(pixelBytes) * size.width() * size.height();
    const QImage::Format format = commonFormat(all);
    QImage picture =
        bytes < parts.mappedFrom ? QImage(size, format) : makeMappedBitmap(size, format);
    if (picture.isNull()) return {};
    int top = 0;
    for (const Segment* part : all) {
        if (!copyRows(*part, picture, top)) return {};
        top += part->height;
    }
    return picture;
}

}  // namespace kestrio
