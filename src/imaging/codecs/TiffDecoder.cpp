#include "imaging/codecs/TiffDecoder.h"

#include <tiffio.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <mutex>

#include "core/Localisation.h"
#include "imaging/codecs/DecodedBitmap.h"
#include "imaging/codecs/ExifOrientation.h"

namespace kestrio {

namespace {

// Some of libtiff's messages know no file and go to its process-wide handlers, which print.
void silenceGlobalHandlers() {
    static std::once_flag once;
    std::call_once(once, [] {
        TIFFSetErrorHandler(nullptr);
        TIFFSetWarningHandler(nullptr);
    });
}

// The bytes as a file that libtiff reads from, and what it says about them.
class TiffSource {
  public:
    TiffSource(const QByteArray& bytes, const DecodeLimits& limits) : bytes_(bytes) {
        silenceGlobalHandlers();
        const std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> options(
            TIFFOpenOptionsAlloc(), TIFFOpenOptionsFree);
        TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), limits.memory);
        TIFFOpenOptionsSetErrorHandlerExtR(options.get(), noteError, this);
        TIFFOpenOptionsSetWarningHandlerExtR(options.get(), judgeWarning, this);
        // Mapped, as libtiff 4.5 refuses plain tiles of other files as being of the wrong size.
        tiff_.reset(TIFFClientOpenExt("picture", "r", this, read, write, seek, close, size, map,
                                      unmap, options.get()));
        if (!tiff_) refuse();
    }
    TiffSource(const TiffSource&) = delete;
    TiffSource& operator=(const TiffSource&) = delete;

    TIFF* tiff() const { return tiff_.get(); }
    bool missesData() const { return missesData_; }

    [[noreturn]] void refuse() const {
        throw ImageLoadError::damaged(
            reason_.isEmpty() ? Kestrio::tr("its pixel data ends early or is garbled") : reason_);
    }

  private:
    static TiffSource* self(void* handle) { return static_cast<TiffSource*>(handle); }

    static tmsize_t read(thandle_t handle, void* target, tmsize_t wanted) {
        TiffSource* source = self(handle);
        const tmsize_t left = std::max<tmsize_t>(0, source->bytes_.size() - source->position_);
        const tmsize_t count = std::min(wanted, left);
        if (count <= 0) return 0;
        std::memcpy(target, source->bytes_.constData() + source->position_,
                    static_cast<size_t>(count));
        source->position_ += count;
        return count;
    }
    static tmsize_t write(thandle_t, void*, tmsize_t) { return 0; }
    static toff_t seek(thandle_t handle, toff_t offset, int origin) {
        TiffSource* source = self(handle);
        const qint64 from = origin == SEEK_CUR   ? source->position_
                            : origin == SEEK_END ? source->bytes_.size()
                                                 : 0;
        source->position_ = from + static_cast<qint64>(std::min<toff_t>(offset, INT64_MAX / 2));
        return static_cast<toff_t>(source->position_);
    }
    static int close(thandle_t) { return 0; }
    static toff_t size(thandle_t handle) {
        return static_cast<toff_t>(self(handle)->bytes_.size());
    }

    static int map(thandle_t handle, void** data, toff_t* length) {
        const QByteArray& bytes = self(handle)->bytes_;
        // Opened for reading, it is only read.
        *data = const_cast<char*>(bytes.constData());
        *length = static_cast<toff_t>(bytes.size());
        return 1;
    }
    static void unmap(thandle_t, void*, toff_t) {}

    // The first error is the cause, what follows its echo. 1 keeps the global handlers out.
    static int noteError(TIFF*, void* handle, const char*, const char* format, va_list arguments) {
        TiffSource* source = self(handle);
        if (source->reason_.isEmpty()) source->reason_ = QString::vasprintf(format, arguments);
        return 1;
    }
    // JPEG data inside a TIFF that ends early is only worth a warning to libtiff.
    static int judgeWarning(TIFF*, void* handle, const char* module, const char*, va_list) {
        if (module && std::strcmp(module, "JPEGLib") == 0) self(handle)->missesData_ = true;
        return 1;
    }

    const QByteArray& bytes_;
    qint64 position_ = 0;
    QString reason_;
    bool missesData_ = false;
    std::unique_ptr<TIFF, decltype(&TIFFClose)> tiff_{nullptr, TIFFClose};
};

template <typename Value>
Value tagOr(TIFF* tiff, uint32_t tag, Value otherwise) {
    Value value = otherwise;
    return TIFFGetFieldDefaulted(tiff, tag, &value) ? value : otherwise;
}

QSize claimedSize(TIFF* tiff) {
    constexpr uint32_t most = INT32_MAX;
    return {static_cast<int>(std::min(tagOr<uint32_t>(tiff, TIFFTAG_IMAGEWIDTH, 0), most)),
            static_cast<int>(std::min(tagOr<uint32_t>(tiff, TIFFTAG_IMAGELENGTH, 0), most))};
}

// One strip or tile of each of its planes is held while it is turned into pixels.
qint64 blockMemory(TIFF* tiff) {
    const quint64 block = TIFFIsTiled(tiff) ? TIFFTileSize64(tiff) : TIFFStripSize64(tiff);
    const bool hasPlanes =
        tagOr<uint16_t>(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) == PLANARCONFIG_SEPARATE;
    const quint64 planes = hasPlanes ? tagOr<uint16_t>(tiff, TIFFTAG_SAMPLESPERPIXEL, 1) : 1;
    return static_cast<qint64>(std::min<quint64>(block, INT32_MAX) * planes);
}

void requireSupported(TIFF* tiff) {
    const auto sampleFormat = tagOr<uint16_t>(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_UINT);
    if (sampleFormat != SAMPLEFORMAT_UINT && sampleFormat != SAMPLEFORMAT_VOID) {
        throw ImageLoadError::unsupportedKind(
            sampleFormat == SAMPLEFORMAT_IEEEFP
                ? Kestrio::tr("a TIFF with floating-point samples")
                : Kestrio::tr("a TIFF with signed or complex samples"));
    }
    char why[1024] = {};
    if (!TIFFRGBAImageOK(tiff, why)) {
        throw ImageLoadError::unsupportedKind(
            Kestrio::tr("a TIFF with %1 samples of %2 bits a pixel and compression %3")
                .arg(tagOr<uint16_t>(tiff, TIFFTAG_SAMPLESPERPIXEL, 1))
                .arg(tagOr<uint16_t>(tiff, TIFFTAG_BITSPERSAMPLE, 1))
                .arg(tagOr<uint16_t>(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE)));
    }
}

bool hasAlpha(TIFF* tiff) {
    uint16_t count = 0;
    uint16_t* kinds = nullptr;
    if (!TIFFGetFieldDefaulted(tiff, TIFFTAG_EXTRASAMPLES, &count, &kinds) || count == 0) {
        return false;
    }
    return kinds[0] == EXTRASAMPLE_ASSOCALPHA || kinds[0] == EXTRASAMPLE_UNASSALPHA;
}

QColorSpace colorSpace(TIFF* tiff) {
    uint32_t length = 0;
    void* data = nullptr;
    if (!TIFFGetField(tiff, TIFFTAG_ICCPROFILE, &length, &data)) return {};
    return colorSpaceOf(QByteArray(static_cast<const char*>(data), length));
}

// libtiff's words are 0xAABBGGRR, premultiplied; files that claim to be so already may not be.
void toOurWords(QImage& bitmap, bool isOpaque) {
    for (int y = 0; y < bitmap.height(); ++y) {
        auto* row = reinterpret_cast<quint32*>(bitmap.scanLine(y));
        for (int x = 0; x < bitmap.width(); ++x) {
            const quint32 word = row[x];
            const quint32 alpha = isOpaque ? 255 : word >> 24;
            const quint32 red = std::min(word & 0xff, alpha);
            const quint32 green = std::min(word >> 8 & 0xff, alpha);
            const quint32 blue = std::min(word >> 16 & 0xff, alpha);
            row[x] = alpha << 24 | red << 16 | green << 8 | blue;
        }
    }
}

QImage readPixels(const TiffSource& source, QSize size, bool isOpaque) {
    QImage bitmap =
        allocateBitmap(size, isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    // Tiles may leave a part of the picture out.
    bitmap.fill(0);
    const bool isRead = TIFFReadRGBAImageOriented(
        source.tiff(), static_cast<uint32_t>(size.width()), static_cast<uint32_t>(size.height()),
        reinterpret_cast<uint32_t*>(bitmap.bits()), ORIENTATION_TOPLEFT, 1);
    if (!isRead || source.missesData()) source.refuse();
    toOurWords(bitmap, isOpaque);
    return bitmap;
}

}  // namespace

QImage decodeTiff(const QByteArray& bytes, const DecodeLimits& limits) {
    const TiffSource source(bytes, limits);
    TIFF* tiff = source.tiff();
    const QSize size = claimedSize(tiff);
    const int orientation = tagOr<uint16_t>(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    checkClaimedSize(size, limits, std::max(blockMemory(tiff), turnedBytes(size, orientation)));
    requireSupported(tiff);
    // libtiff knows how to flip but not how to turn, so the rows are read as they stand.
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    QImage bitmap = readPixels(source, size, !hasAlpha(tiff));
    return uprightBitmap(finishedBitmap(std::move(bitmap), colorSpace(tiff)), orientation);
}

}  // namespace kestrio
