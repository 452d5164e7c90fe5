#include "imaging/codecs/PngPixelData.h"

#include <QtEndian>

#include <libdeflate.h>

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

#include "core/Parallel.h"
#include "imaging/codecs/PngUnfilter.h"

namespace kestrio {

namespace {

// Larger pictures go through libpng, row by row, for the sake of memory.
constexpr qsizetype mostPlainBytes = qsizetype(1) << 28;

constexpr int rowsPerSegment = 32;

struct Chunk {
    QByteArrayView type;
    QByteArrayView data;
};

std::optional<Chunk> chunkAt(QByteArrayView file, qsizetype position) {
    constexpr qsizetype frame = 12;
    if (file.size() - position < frame) return {};
    const auto length = qFromBigEndian<quint32>(file.data() + position);
    if (length > quint64(file.size() - position - frame)) return {};
    const QByteArrayView checked = file.sliced(position + 4, 4 + qsizetype(length));
    const auto checksum = qFromBigEndian<quint32>(checked.data() + checked.size());
    if (libdeflate_crc32(0, checked.data(), static_cast<size_t>(checked.size())) != checksum) {
        return {};
    }
    return Chunk{checked.first(4), checked.sliced(4)};
}

// The joined pixel data, empty unless all chunks from here to the end of the picture are sound.
QByteArray joinedPixelData(QByteArrayView file, qsizetype position) {
    QByteArray data;
    data.reserve(file.size() - position);
    bool pixelDataEnded = false;
    while (const std::optional<Chunk> chunk = chunkAt(file, position)) {
        position += 12 + chunk->data.size();
        if (chunk->type == "IEND") return data;
        if (chunk->type == "IDAT") {
            if (pixelDataEnded) return {};
            data.append(chunk->data);
        } else {
            pixelDataEnded = true;
        }
    }
    return {};
}

bool inflate(const QByteArray& data, uchar* target, size_t size) {
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)>
        decompressor(libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    return decompressor && libdeflate_zlib_decompress(decompressor.get(), data.constData(),
                                                      static_cast<size_t>(data.size()), target,
                                                      size, nullptr) == LIBDEFLATE_SUCCESS;
}

// Rows where restoring may start without the rows before: runs between them go to several cores.
std::vector<int> segmentStarts(const uchar* filtered, qsizetype stride, int height) {
    std::vector<int> starts{0};
    for (int y = 1; y < height; ++y) {
        if (y - starts.back() >= rowsPerSegment && standsAlone(filtered[y * stride])) {
            starts.push_back(y);
        }
    }
    starts.push_back(height);
    return starts;
}

}  // namespace

bool readPixelData(const QByteArray& file, qsizetype position, QImage& bitmap) {
    const int pixelBytes = bitmap.format() == QImage::Format_RGB32 ? 3 : 4;
    const int width = bitmap.width();
    const qsizetype stride = qsizetype(width) * pixelBytes + 1;
    const qsizetype plainBytes = stride * bitmap.height();
    if (plainBytes > mostPlainBytes) return false;
    const QByteArray data = joinedPixelData(file, position);
    const auto filtered = std::make_unique_for_overwrite<uchar[]>(static_cast<size_t>(plainBytes));
    if (!inflate(data, filtered.get(), static_cast<size_t>(plainBytes))) return false;

    const std::vector<quint32> zeros(static_cast<size_t>(width));
    uchar* bits = bitmap.bits();
    const qsizetype bitmapStride = bitmap.bytesPerLine();
    const auto row = [&](int y) { return reinterpret_cast<quint32*>(bits + y * bitmapStride); };
    const std::vector<int> starts = segmentStarts(filtered.get(), stride, bitmap.height());
    std::atomic<bool> sound{true};
    parallelBands(static_cast<int>(starts.size()) - 1, 1, [&](int first, int last) {
        for (int y = starts[first]; y < starts[last] && sound; ++y) {
            const quint32* above = y > 0 ? row(y - 1) : zeros.data();
            if (!unfilterRow(filtered.get() + y * stride, pixelBytes, above, row(y), width)) {
                sound = false;
            }
        }
    });
    return sound;
}

}  // namespace kestrio
