#include "imaging/codecs/BmpCheck.h"

#include <algorithm>
#include <limits>

#include "core/Localisation.h"
#include "imaging/codecs/ImageLoadError.h"
#include "imaging/codecs/LittleEndianView.h"

namespace kestrio {

namespace {

constexpr qint64 fileHeader = 14;
constexpr quint32 oldHeader = 12;
constexpr quint32 commonHeader = 40;

enum class Compression : quint32 { none = 0, rle8 = 1, rle4 = 2, bitFields = 3 };

struct BmpHeader {
    quint32 size = 0;
    qint64 width = 0;
    qint64 height = 0;
    int bitsPerPixel = 0;
    Compression compression = Compression::none;
    qint64 pixels = 0;  ///< where they begin in the file

    qint64 rowBytes() const { return (width * bitsPerPixel + 31) / 32 * 4; }
};

[[noreturn]] void refuse(QString reason) {
    throw ImageLoadError::damaged(std::move(reason));
}

template <typename Integer>
Integer need(const LittleEndianView& view, qint64 offset) {
    if (const auto number = view.at<Integer>(offset)) return *number;
    refuse(Kestrio::tr("its header ends early"));
}

// The bytes between the header and the pixels.
qint64 paletteBytes(const LittleEndianView& view, const BmpHeader& header) {
    const bool isOld = header.size == oldHeader;
    if (header.bitsPerPixel > 8) {
        const bool hasMasks = !isOld && header.compression == Compression::bitFields;
        return hasMasks && header.size == commonHeader ? 12 : 0;
    }
    qint64 colours = isOld ? 0 : need<quint32>(view, fileHeader + 32);
    if (colours == 0) colours = qint64(1) << header.bitsPerPixel;
    return colours * (isOld ? 3 : 4);
}

BmpHeader readHeader(const LittleEndianView& view) {
    BmpHeader header;
    header.size = need<quint32>(view, fileHeader);
    if (header.size == oldHeader) {
        header.width = need<quint16>(view, fileHeader + 4);
        header.height = need<quint16>(view, fileHeader + 6);
        header.bitsPerPixel = need<quint16>(view, fileHeader + 10);
    } else {
        header.width = need<qint32>(view, fileHeader + 4);
        header.height = std::abs(qint64(need<qint32>(view, fileHeader + 8)));
        header.bitsPerPixel = need<quint16>(view, fileHeader + 14);
        header.compression = Compression(need<quint32>(view, fileHeader + 16));
    }
    if (header.width < 1 || header.height < 1 || header.height > std::numeric_limits<int>::max()) {
        refuse(Kestrio::tr("its width or height is not positive"));
    }
    // Qt goes on where the palette ends when the header names a place before that.
    const qint64 behindPalette = fileHeader + header.size + paletteBytes(view, header);
    const qint64 named = need<quint32>(view, 10);
    if (named != 0 && named < fileHeader + header.size) {
        refuse(Kestrio::tr("its pixels are said to begin inside its header"));
    }
    header.pixels = std::max(behindPalette, named);
    return header;
}

// Steps over run lengths as far as the last row. Runs may leave pixels out, which then are of the
// palette's first colour, but not whole rows at the end.
class RunLengthWalk {
  public:
    RunLengthWalk(const LittleEndianView& view, const BmpHeader& header)
        : view_(view), header_(header), position_(header.pixels) {}

    bool reachesLastRow() {
        while (row_ < header_.height) {
            const auto first = next();
            const auto second = next();
            if (!first || !second) return isLastRowWhole();
            if (*first > 0) {
                column_ += *first;
            } else if (*second == endOfBitmap) {
                return row_ + 1 >= header_.height;
            } else if (!skipEscape(*second)) {
                return false;
            }
        }
        return true;
    }

  private:
    static constexpr quint8 endOfRow = 0;
    static constexpr quint8 endOfBitmap = 1;
    static constexpr quint8 delta = 2;

    std::optional<quint8> next() { return view_.at<quint8>(position_++); }
    bool isLastRowWhole() const { return row_ + 1 == header_.height && column_ >= header_.width; }

    bool skipEscape(quint8 code) {
        if (code == endOfRow) {
            column_ = 0;
            ++row_;
            return true;
        }
        if (code == delta) {
            const auto right = next();
            const auto down = next();
            if (!right || !down) return false;
            column_ += *right;
            row_ += *down;
            return true;
        }
        // Literal pixels, padded to whole words.
        const int bytes = header_.compression == Compression::rle4 ? (code + 1) / 2 : code;
        position_ += bytes + (bytes & 1);
        column_ += code;
        return position_ <= view_.size() + (bytes & 1);
    }

    const LittleEndianView& view_;
    const BmpHeader& header_;
    qint64 position_;
    qint64 column_ = 0;
    qint64 row_ = 0;
};

}  // namespace

void checkBmp(QByteArrayView bytes) {
    const LittleEndianView view(bytes);
    const BmpHeader header = readHeader(view);
    bool isWhole = true;
    switch (header.compression) {
        case Compression::none:
        case Compression::bitFields:
            isWhole = header.pixels + header.rowBytes() * header.height <= view.size();
            break;
        case Compression::rle4:
        case Compression::rle8:
            isWhole = RunLengthWalk(view, header).reachesLastRow();
            break;
    }
    if (!isWhole) refuse(Kestrio::tr("its pixel data ends early"));
}

}  // namespace kestrio
