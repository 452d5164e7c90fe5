#include "imaging/codecs/GifCheck.h"

#include <array>

#include "core/Localisation.h"
#include "imaging/codecs/ImageLoadError.h"
#include "imaging/codecs/LittleEndianView.h"

namespace kestrio {

namespace {

constexpr int longestCode = 12;
constexpr int mostCodes = 1 << longestCode;

[[noreturn]] void refuse(const char* reason) {
    throw ImageLoadError::damaged(Kestrio::tr(reason));
}

constexpr const char* endsEarly = Kestrio::marked("it ends early");
constexpr const char* brokenCodes = Kestrio::marked("its pixel data is garbled");

// A table of colours follows where the highest bit is set.
qint64 colourTableBytes(quint8 flags) {
    return flags & 0x80 ? qint64(3) << ((flags & 7) + 1) : 0;
}

// Counts the pixels that codes stand for, without making them.
class LzwCounter {
  public:
    explicit LzwCounter(int rootBits) : clear_(1 << rootBits), rootBits_(rootBits) { reset(); }

    enum class State { running, ended };

    // Takes the next eight bits.
    State take(quint8 byte) {
        bits_ |= quint32(byte) << held_;
        held_ += 8;
        while (held_ >= width_) {
            const int code = static_cast<int>(bits_ & ((1u << width_) - 1));
            bits_ >>= width_;
            held_ -= width_;
            if (code == clear_ + 1) return State::ended;
            if (code == clear_) {
                reset();
            } else {
                count(code);
            }
        }
        return State::running;
    }

    qint64 pixels() const { return pixels_; }

  private:
    void reset() {
        next_ = clear_ + 2;
        width_ = rootBits_ + 1;
        previous_ = 0;
    }

    // `previous_` is the length of the last code's string, 0 after a reset.
    void count(int code) {
        const bool isRoot = code < clear_;
        const bool isNew = previous_ > 0 && code == next_ && next_ < mostCodes;
        const bool isKnown = isRoot || (previous_ > 0 && code < next_);
        if (!isKnown && !isNew) refuse(brokenCodes);
        const qint64 length = isNew ? previous_ + 1 : isRoot ? 1 : lengths_[code];
        if (previous_ > 0 && next_ < mostCodes) {
            lengths_[next_++] = previous_ + 1;
            if (next_ == 1 << width_ && width_ < longestCode) ++width_;
        }
        previous_ = length;
        pixels_ += length;
    }

    const int clear_;
    const int rootBits_;
    std::array<qint64, mostCodes> lengths_{};
    int next_ = 0;
    int width_ = 0;
    qint64 previous_ = 0;
    quint32 bits_ = 0;
    int held_ = 0;
    qint64 pixels_ = 0;
};

class GifWalk {
  public:
    explicit GifWalk(QByteArrayView bytes) : view_(bytes) {}

    void run() {
        constexpr qint64 signature = 6;
        position_ = signature + 4;
        const quint8 flags = byte();
        position_ += 2 + colourTableBytes(flags);
        bool hasFrame = false;
        for (;;) {
            switch (byte()) {
                case padding:
                    break;
                case extension:
                    ++position_;
                    skipBlocks();
                    break;
                case frame:
                    readFrame(!hasFrame);
                    hasFrame = true;
                    break;
                case trailer:
                    if (!hasFrame) refuse(Kestrio::marked("it holds no frame"));
                    return;
                default:
                    refuse(Kestrio::marked("its blocks are garbled"));
            }
        }
    }

  private:
    // Some writers end a chain of blocks twice.
    static constexpr quint8 padding = 0;
    static constexpr quint8 extension = 0x21;
    static constexpr quint8 frame = 0x2c;
    static constexpr quint8 trailer = 0x3b;

    quint8 byte() {
        if (const auto value = view_.at<quint8>(position_++)) return *value;
        refuse(endsEarly);
    }
    quint16 word() {
        const auto value = view_.at<quint16>(position_);
        if (!value) refuse(endsEarly);
        position_ += 2;
        return *value;
    }

    void skipBlocks() {
        while (const quint8 length = byte())
            position_ += length;
    }

    void readFrame(bool isFirst) {
        position_ += 4;
        const qint64 width = word();
        const qint64 pixels = width * word();
        position_ += colourTableBytes(byte());
        const int rootBits = byte();
        if (isFirst) countPixels(rootBits, pixels);
        skipBlocks();
    }

    // Ends inside the chain of blocks, at the beginning of one.
    void countPixels(int rootBits, qint64 pixels) {
        if (pixels == 0) refuse(Kestrio::marked("its width or height is not positive"));
        if (rootBits < 1 || rootBits >= longestCode) refuse(brokenCodes);
        LzwCounter counter(rootBits);
        while (counter.pixels() < pixels) {
            const quint8 length = byte();
            if (length == 0) refuse(brokenCodes);
            const qint64 end = position_ + length;
            while (position_ < end && counter.pixels() < pixels) {
                const bool ended = counter.take(byte()) == LzwCounter::State::ended;
                if (ended && counter.pixels() < pixels) refuse(brokenCodes);
            }
            position_ = end;
        }
    }

    LittleEndianView view_;
    qint64 position_ = 0;
};

}  // namespace

void checkGif(QByteArrayView bytes) {
    GifWalk(bytes).run();
}

}  // namespace kestrio
