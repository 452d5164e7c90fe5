#include "scrolling/stitch/Segment.h"

#include <algorithm>

#include "imaging/ExportError.h"
#include "imaging/Image.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/PngEncoder.h"

namespace kestrio {

qint64 SegmentStorage::byteCount() const {
    if (const auto* file = std::get_if<QByteArray>(&pixels)) return file->size();
    return std::get<QImage>(pixels).sizeInBytes();
}

QImage SegmentStorage::decoded() const {
    if (const auto* image = std::get_if<QImage>(&pixels)) return *image;
    try {
        return inCanonicalFormat(decodeImage(std::get<QByteArray>(pixels)));
    } catch (const std::exception&) {
        return {};
    }
}

std::optional<Segment> makeSegment(const QImage& frame, int y, int height) {
    if (y < 0 || height < 1 || height > frame.height() - y) return std::nullopt;
    QImage rows = frame.copy(0, y, frame.width(), height);
    if (rows.isNull()) return std::nullopt;
    const QImage::Format format = rows.format();
    return Segment{{std::move(rows)}, frame.width(), height, format};
}

Segment compressed(Segment segment) {
    const auto* rows = std::get_if<QImage>(&segment.storage.pixels);
    if (!rows) return segment;
    try {
        segment.storage.pixels = encodePng(*rows);
    } catch (const ExportError&) {
        // They stay as they are.
    }
    return segment;
}

qint64 SegmentList::byteCount() const {
    qint64 bytes = 0;
    for (const Segment& segment : segments_)
        bytes += segment.storage.byteCount();
    return bytes;
}

void SegmentList::append(Segment segment) {
    if (!segments_.empty() && compression_ == SegmentCompression::png)
        segments_.back() = compressed(std::move(segments_.back()));
    height_ += segment.height;
    segments_.push_back(std::move(segment));
}

bool SegmentList::trimTail(int rows) {
    int remaining = std::clamp(rows, 0, height_);
    std::size_t kept = segments_.size();
    while (kept > 0 && segments_[kept - 1].height <= remaining)
        remaining -= segments_[--kept].height;
    std::optional<Segment> cropped;
    if (remaining > 0) {
        const Segment& last = segments_[kept - 1];
        cropped = makeSegment(last.storage.decoded(), 0, last.height - remaining);
        if (!cropped) return false;
    }
    segments_.resize(kept);
    if (cropped) segments_.back() = std::move(*cropped);
    height_ -= std::clamp(rows, 0, height_);
    return true;
}

void SegmentList::clear() {
    segments_.clear();
    height_ = 0;
}

}  // namespace kestrio
