#pragma once

#include <QByteArray>
#include <QImage>

#include <list>
#include <memory>
#include <mutex>

namespace kestrio {

/// Decoded pictures that styles carry, by their bytes, so that a backdrop is decoded once and not
/// for each composition. Lives as long as somebody holds shared(): an open editor, or a command
/// that renders many pictures. Any thread.
class DecodedPictures {
  public:
    /// `limit` is in bytes, of bitmaps and encoded pictures together. Beyond it, those that were
    /// not wanted for longest go first.
    explicit DecodedPictures(qint64 limit = qint64(256) << 20) : limit_(limit) {}

    /// The one that everybody holds at present; a new one where nobody does.
    static std::shared_ptr<DecodedPictures> shared();

    /// decodeImage() of `bytes`. Throws ImageLoadError.
    QImage whole(const QByteArray& bytes);

    /// A copy of about 0.4 megapixels; the picture itself where that is smaller. Throws
    /// ImageLoadError.
    QImage small(const QByteArray& bytes);

    /// What is held at present, in bytes.
    qint64 size() const;

  private:
    // Its bitmaps are guarded by its own mutex, which is held while decoding: who comes second
    // waits for the picture instead of making another.
    struct Entry {
        explicit Entry(QByteArray data) : bytes(std::move(data)) {}

        const QByteArray bytes;
        std::mutex mutex;
        QImage whole;
        QImage small;
    };
    using EntryPointer = std::shared_ptr<Entry>;

    // The same, with sizes as last reported, so that counting waits for no decoder.
    struct Slot {
        EntryPointer entry;
        qint64 wholeSize = 0;
        qint64 smallSize = 0;

        qint64 size() const { return entry->bytes.size() + wholeSize + smallSize; }
    };

    EntryPointer entryOf(const QByteArray& bytes);
    void settle(const EntryPointer& entry, qint64 wholeSize, qint64 smallSize);
    void trim();

    const qint64 limit_;
    mutable std::mutex mutex_;
    std::list<Slot> slots_;  ///< the last one wanted first
};

/// What a style's picture shows: `small` where a small copy will do. Null where there are no bytes
/// or none that can be decoded.
enum class PictureDetail { whole, small };
QImage stylePicture(const std::optional<QByteArray>& bytes,
                    PictureDetail detail = PictureDetail::whole);

}  // namespace kestrio
