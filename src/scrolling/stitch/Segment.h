#pragma once

#include <QByteArray>
#include <QImage>
#include <optional>
#include <variant>
#include <vector>

namespace kestrio {

/// How a segment keeps its pixels: as the bytes of a PNG file, or as they are.
struct SegmentStorage {
    std::variant<QByteArray, QImage> pixels;

    bool isCompressed() const { return std::holds_alternative<QByteArray>(pixels); }
    qint64 byteCount() const;
    /// The pixels; null where they cannot be decoded.
    QImage decoded() const;
};

/// Some whole rows of a long picture.
struct Segment {
    SegmentStorage storage;
    int width = 0;
    int height = 0;
    QImage::Format format = QImage::Format_Invalid;  ///< of the pixels, one of Image's
};

/// Whether segments that are not the newest are compressed.
enum class SegmentCompression { none, png };

/// Copies the rows from `y` on, without keeping the rest of the frame. Nothing where they do not
/// lie within it.
std::optional<Segment> makeSegment(const QImage& frame, int y, int height);

/// The same rows as a PNG, or as they are where that fails.
Segment compressed(Segment segment);

/// The rows of a long picture from the top down. The newest segment stays as it is until another
/// one follows, since the next frame usually takes some of its last rows away.
class SegmentList {
  public:
    explicit SegmentList(SegmentCompression compression) : compression_(compression) {}

    const std::vector<Segment>& segments() const { return segments_; }
    bool isEmpty() const { return segments_.empty(); }
    /// Rows of all segments.
    int height() const { return height_; }
    qint64 byteCount() const;

    void append(Segment segment);
    /// Takes the last `rows` rows away, at most all. False, with nothing changed, where a segment
    /// cannot be decoded.
    bool trimTail(int rows);
    void clear();

  private:
    SegmentCompression compression_;
    std::vector<Segment> segments_;
    int height_ = 0;
};

}  // namespace kestrio
