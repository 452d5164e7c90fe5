#include "imaging/codecs/DeflateSegment.h"

#include <gtest/gtest.h>
#include <libdeflate.h>
#include <zlib.h>

namespace kestrio {
namespace {

std::vector<uchar> deflated(const std::vector<uchar>& plain, int level) {
    libdeflate_compressor* compressor = libdeflate_alloc_compressor(level);
    std::vector<uchar> stream(libdeflate_deflate_compress_bound(compressor, plain.size()));
    stream.resize(libdeflate_deflate_compress(compressor, plain.data(), plain.size(), stream.data(),
                                              stream.size()));
    libdeflate_free_compressor(compressor);
    return stream;
}

std::vector<uchar> inflatedByZlib(std::vector<uchar> stream, size_t expectedSize) {
    std::vector<uchar> plain(expectedSize + 1);
    z_stream zlib{};
    inflateInit2(&zlib, -15);
    zlib.next_in = stream.data();
    zlib.avail_in = static_cast<uInt>(stream.size());
    zlib.next_out = plain.data();
    zlib.avail_out = static_cast<uInt>(plain.size());
    const int status = inflate(&zlib, Z_FINISH);
    plain.resize(status == Z_STREAM_END && zlib.avail_in == 0 ? zlib.total_out : 0);
    inflateEnd(&zlib);
    return plain;
}

// From nothing over bytes that hardly shrink to long runs: stored, fixed and dynamic blocks, and
// several blocks in a stream.
std::vector<uchar> samplePiece(int kind, size_t size) {
    std::vector<uchar> piece(size);
    quint32 noise = static_cast<quint32>(kind) + 1;
    for (size_t i = 0; i < size; ++i) {
        noise = noise * 1664525u + 1013904223u;
        const quint32 values = kind == 0 ? 256 : kind == 1 ? 3 : 1 + (i >> 14) * 5;
        piece[i] = static_cast<uchar>((noise >> 16) % values);
    }
    return piece;
}

TEST(DeflateSegment, PiecesJoinToOneStream) {
    for (const int level : {1, 5, 9, 12}) {
        std::vector<uchar> stream;
        std::vector<uchar> plain;
        for (const size_t size : {0, 1, 2, 3, 5, 17, 100, 1000, 200000}) {
            for (int kind = 0; kind < 3; ++kind) {
                const std::vector<uchar> piece = samplePiece(kind, size);
                std::vector<uchar> segment = deflated(piece, level);
                makeContinuable(segment);
                stream.insert(stream.end(), segment.begin(), segment.end());
                plain.insert(plain.end(), piece.begin(), piece.end());
            }
        }
        const std::vector<uchar> tail = deflated({1, 2, 3}, level);
        stream.insert(stream.end(), tail.begin(), tail.end());
        plain.insert(plain.end(), {1, 2, 3});
        EXPECT_EQ(inflatedByZlib(stream, plain.size()), plain) << "level " << level;
    }
}

}  // namespace
}  // namespace kestrio
