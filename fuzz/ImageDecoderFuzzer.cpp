// Any bytes either decode to a picture or throw ImageLoadError. As seeds serve fuzz/corpus/image/
// and tests/imaging/codecs/fuzzed/.

#include <QtEndian>

#include <zlib.h>

#include <cstddef>
#include <cstdint>

#include "imaging/codecs/ImageDecoder.h"

namespace {

// Small pictures reach the same code as large ones, many times as often.
constexpr kestrio::DecodeLimits limits{.memory = qint64(1) << 19, .side = 1 << 12};

void decode(const QByteArray& bytes) {
    try {
        const QImage bitmap = kestrio::decodeImage(bytes, limits);
        const bool canonical = bitmap.format() == QImage::Format_RGB32 ||
                               bitmap.format() == QImage::Format_ARGB32_Premultiplied;
        if (bitmap.isNull() || !canonical) __builtin_trap();
    } catch (const kestrio::ImageLoadError& error) {
        if (error.errorDescription().isEmpty()) __builtin_trap();
    }
}

// Mutations rarely keep a PNG chunk's checksum, and what follows would never be reached.
QByteArray withTrueChecksums(QByteArray png) {
    constexpr qsizetype signature = 8;
    constexpr qsizetype frame = 12;
    qsizetype position = signature;
    while (png.size() - position >= frame) {
        const qsizetype length = qFromBigEndian<quint32>(png.constData() + position);
        if (length > png.size() - position - frame) break;
        const auto* checked = reinterpret_cast<const Bytef*>(png.constData()) + position + 4;
        const uLong checksum = crc32(0, checked, static_cast<uInt>(length + 4));
        qToBigEndian(static_cast<quint32>(checksum), png.data() + position + 8 + length);
        position += frame + length;
    }
    return png;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    decode(bytes);
    if (bytes.startsWith("\x89PNG\r\n\x1a\n")) decode(withTrueChecksums(bytes));
    return 0;
}
