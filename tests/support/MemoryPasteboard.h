#pragma once

#include "imaging/codecs/ImageDecoder.h"
#include "platform/Pasteboard.h"

namespace kestrio {

/// A clipboard in memory that refuses pictures or texts, and fails to be read, on demand.
class MemoryPasteboard : public Pasteboard {
  public:
    bool refusesImages = false;
    int refusalsToCome = 0;  ///< so many pictures are refused, the next one not
    bool refusesText = false;
    std::optional<PasteboardError> readFailure;

    bool writeImage(const QImage& image, const QByteArray& png) override {
        if (refusesImages || (image.isNull() && png.isEmpty())) return false;
        if (refusalsToCome > 0) return --refusalsToCome, false;
        return take({image, png, {}, {}});
    }

    bool writeFiles(const QStringList& paths) override { return take({{}, {}, paths, {}}); }

    bool writeText(const QString& text) override {
        return !refusesText && take({{}, {}, {}, text});
    }

    Task<PasteboardContents> read(PasteboardKinds wanted, std::stop_token = {}) override {
        // As other programs answer: never at once.
        const auto answer = sleepFor(std::chrono::milliseconds(0));
        co_await answer;
        if (readFailure) throw *readFailure;
        PasteboardContents found;
        if (wanted.testFlag(PasteboardKind::picture)) {
            found.image =
                contents_.image.isNull() ? decodeImageOrNull(contents_.png) : contents_.image;
            found.png = contents_.png;
        }
        if (found.isEmpty() && wanted.testFlag(PasteboardKind::files))
            found.files = contents_.files;
        if (found.isEmpty() && wanted.testFlag(PasteboardKind::text)) found.text = contents_.text;
        co_return found;
    }

    quint32 owner() const override { return owner_; }
    bool ownsContents() const override { return owner_ == self; }

    /// As if another program had copied that.
    void setForeign(PasteboardContents contents) {
        contents_ = std::move(contents);
        owner_ = self + 1;
    }

    /// What is on it.
    const PasteboardContents& contents() const { return contents_; }

  private:
    static constexpr quint32 self = 1;

    bool take(PasteboardContents contents) {
        contents_ = std::move(contents);
        owner_ = self;
        return true;
    }

    PasteboardContents contents_;
    quint32 owner_ = 0;
};

}  // namespace kestrio
