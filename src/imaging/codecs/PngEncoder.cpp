#include "imaging/codecs/PngEncoder.h"

#include <QtEndian>

#include <libdeflate.h>
#include <zlib.h>

#include <mutex>

#include "core/Parallel.h"
#include "core/Simd.h"
#include "imaging/ExportError.h"
#include "imaging/codecs/DeflateSegment.h"
#include "imaging/codecs/PngFilter.h"
#include "imaging/codecs/StraightAlpha.h"
#include "imaging/filters/Opacity.h"

namespace kestrio {

namespace {

// libdeflate's level 5 gives files of the size that zlib's 6 gives in a quarter of its time; below
// it the matches are no longer looked at twice, and some pictures grow by a tenth.
constexpr int compressionLevel = 5;

// Filtered bytes that are compressed as one piece. Pieces do not see each other's bytes, which
// costs a thousandth of the file at this length. It depends on the picture alone, never on the
// number of threads: so neither do the file's bytes.
constexpr int pieceBytes = 1 << 20;

constexpr char signature[] = "\x89PNG\r\n\x1a\n";
constexpr char zlibHeader[] = "\x78\x5e";
constexpr uchar colourTypeRgb = 2;
constexpr uchar colourTypeRgba = 6;
constexpr char perceptualIntent[] = {0};

struct Piece {
    std::vector<uchar> deflated;
    uLong checksum = 0;
    qint64 plainBytes = 0;
};

KESTRIO_SIMD void packRgb(const quint32* source, uchar* __restrict target, int count) {
    for (int x = 0; x < count; ++x) {
        target[3 * x] = static_cast<uchar>(source[x] >> 16);
        target[3 * x + 1] = static_cast<uchar>(source[x] >> 8);
        target[3 * x + 2] = static_cast<uchar>(source[x]);
    }
}

KESTRIO_SIMD void swapRedAndBlue(const quint32* source, uchar* __restrict target, int count) {
    for (int x = 0; x < count; ++x) {
        target[4 * x] = static_cast<uchar>(source[x] >> 16);
        target[4 * x + 1] = static_cast<uchar>(source[x] >> 8);
        target[4 * x + 2] = static_cast<uchar>(source[x]);
        target[4 * x + 3] = static_cast<uchar>(source[x] >> 24);
    }
}

// Filters and compresses the pieces of one band with buffers that they share.
class PieceEncoder {
  public:
    PieceEncoder(const QImage& bitmap, int pixelBytes)
        : bitmap_(bitmap),
          pixelBytes_(pixelBytes),
          rowBytes_(bitmap.width() * pixelBytes),
          straight_(pixelBytes == 4 ? bitmap.width() : 0),
          compressor_(libdeflate_alloc_compressor(compressionLevel), libdeflate_free_compressor) {
        if (!compressor_) throw ExportError::renderingFailed();
    }

    Piece encode(int firstRow, int lastRow, bool isLast) {
        filterRows(firstRow, lastRow);
        Piece piece;
        piece.plainBytes = static_cast<qint64>(filtered_.size());
        piece.checksum = libdeflate_adler32(1, filtered_.data(), filtered_.size());
        deflated_.resize(libdeflate_deflate_compress_bound(compressor_.get(), filtered_.size()));
        const size_t size =
            libdeflate_deflate_compress(compressor_.get(), filtered_.data(), filtered_.size(),
                                        deflated_.data(), deflated_.size());
        if (size == 0) throw ExportError::renderingFailed();
        piece.deflated.assign(deflated_.begin(), deflated_.begin() + static_cast<qsizetype>(size));
        if (!isLast) makeContinuable(piece.deflated);
        return piece;
    }

  private:
    void filterRows(int first, int last) {
        PngRowFilter filter(rowBytes_, pixelBytes_);
        const qsizetype stride = rowBytes_ + 1;
        filtered_.resize(static_cast<size_t>(stride * (last - first)));
        for (int y = first; y < last; ++y) {
            packRow(y, filter.row());
            filter.filterRow(filtered_.data() + stride * (y - first));
        }
    }

    void packRow(int y, uchar* target) {
        const auto* source = reinterpret_cast<const quint32*>(bitmap_.constScanLine(y));
        if (pixelBytes_ == 3) {
            packRgb(source, target, bitmap_.width());
        } else {
            unpremultiplyRow(source, straight_.data(), bitmap_.width());
            swapRedAndBlue(straight_.data(), target, bitmap_.width());
        }
    }

    const QImage& bitmap_;
    const int pixelBytes_;
    const int rowBytes_;
    std::vector<quint32> straight_;
    std::vector<uchar> filtered_;
    std::vector<uchar> deflated_;
    std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor_;
};

std::vector<Piece> encodePieces(const QImage& bitmap, int pixelBytes, const EncodeHooks& hooks) {
    const int rowsPerPiece = std::max(1, pieceBytes / (bitmap.width() * pixelBytes + 1));
    const int count = (bitmap.height() + rowsPerPiece - 1) / rowsPerPiece;
    std::vector<Piece> pieces(count);
    std::mutex mutex;
    int done = 0;
    parallelBands(count, 1, [&](int first, int last) {
        PieceEncoder encoder(bitmap, pixelBytes);
        for (int index = first; index < last; ++index) {
            if (hooks.stop.stop_requested()) throw ExportError::userCancelled();
            const int row = index * rowsPerPiece;
            pieces[index] = encoder.encode(row, std::min(row + rowsPerPiece, bitmap.height()),
                                           index == count - 1);
            const std::lock_guard lock(mutex);
            hooks.report(double(++done) / count);
        }
    });
    return pieces;
}

void appendBigEndian(QByteArray& file, quint32 value) {
    const quint32 stored = qToBigEndian(value);
    file.append(reinterpret_cast<const char*>(&stored), sizeof stored);
}

void appendChunk(QByteArray& file, QByteArrayView type, QByteArrayView data) {
    appendBigEndian(file, static_cast<quint32>(data.size()));
    const qsizetype checkedFrom = file.size();
    file.append(type).append(data);
    appendBigEndian(file, libdeflate_crc32(0, file.constData() + checkedFrom,
                                           static_cast<size_t>(file.size() - checkedFrom)));
}

QByteArray header(QSize size, bool opaque) {
    QByteArray data;
    appendBigEndian(data, static_cast<quint32>(size.width()));
    appendBigEndian(data, static_cast<quint32>(size.height()));
    const uchar colourType = opaque ? colourTypeRgb : colourTypeRgba;
    const uchar rest[] = {8, colourType, 0, 0, 0};
    return data.append(QByteArrayView(rest, std::size(rest)));
}

}  // namespace

QByteArray encodePng(const QImage& bitmap, const EncodeHooks& hooks) {
    if (bitmap.isNull()) throw ExportError::renderingFailed();
    const bool opaque = isOpaque(bitmap);
    const std::vector<Piece> pieces = encodePieces(bitmap, opaque ? 3 : 4, hooks);

    qsizetype total = 0;
    uLong checksum = adler32(0, nullptr, 0);
    for (const Piece& piece : pieces) {
        total += static_cast<qsizetype>(piece.deflated.size());
        checksum = adler32_combine(checksum, piece.checksum, piece.plainBytes);
    }
    QByteArray file(signature);
    file.reserve(total + 12 * static_cast<qsizetype>(pieces.size()) + 128);
    appendChunk(file, "IHDR", header(bitmap.size(), opaque));
    appendChunk(file, "sRGB", QByteArrayView(perceptualIntent, sizeof perceptualIntent));
    QByteArray data(zlibHeader);
    for (const Piece& piece : pieces) {
        data.append(QByteArrayView(piece.deflated.data(), piece.deflated.size()));
        if (&piece == &pieces.back()) appendBigEndian(data, static_cast<quint32>(checksum));
        appendChunk(file, "IDAT", data);
        data.clear();
    }
    appendChunk(file, "IEND", {});
    return file;
}

}  // namespace kestrio
