#include "imaging/codecs/PngDecoder.h"

#include <QtEndian>

#include <png.h>

#include <csetjmp>
#include <cstring>

#include "core/Localisation.h"
#include "imaging/codecs/DecodedBitmap.h"
#include "imaging/codecs/PngPixelData.h"

namespace kestrio {

namespace {

// Deflate cannot shrink data further than this, so a smaller file cannot hold the pixels it claims.
constexpr qint64 largestDeflateRatio = 1032;

// After the information before the pixels, libpng has also read the first pixel data chunk's
// header.
constexpr qsizetype chunkHeader = 8;

// libpng's error handling is setjmp: every call that may fail runs inside guarded(), whose steps
// own nothing that needs a destructor.
class PngReader {
  public:
    explicit PngReader(const QByteArray& bytes) : bytes_(bytes) {
        png_ = png_create_read_struct(PNG_LIBPNG_VER_STRING, this, fail, ignoreWarning);
        if (png_) info_ = png_create_info_struct(png_);
        if (!info_) throw std::bad_alloc();
    }
    ~PngReader() { png_destroy_read_struct(&png_, &info_, nullptr); }
    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;

    QImage decode(const DecodeLimits& limits) {
        const QSize size = claimedSize();
        checkClaimedSize(size, limits);
        guarded([this] {
            // The caller's limits are checked here, not by libpng, which knows no pixel count.
            png_set_user_limits(png_, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
            png_set_read_fn(png_, this, read);
            png_read_info(png_, info_);
        });
        if (qint64(png_get_rowbytes(png_, info_)) * size.height() / largestDeflateRatio >
            bytes_.size()) {
            throw ImageLoadError::damaged(Kestrio::tr("it holds less data than its size asks for"));
        }
        const QColorSpace profile = colorSpace();
        const bool hasAlpha = (png_get_color_type(png_, info_) & PNG_COLOR_MASK_ALPHA) ||
                              png_get_valid(png_, info_, PNG_INFO_tRNS);
        QImage bitmap =
            allocateBitmap(size, hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
        // The fast way holds all rows inflated.
        const bool isFast = isPlain() && bitmapBytes(size) * 2 <= limits.memory;
        if (!isFast || !readPixelData(bytes_, position_ - chunkHeader, bitmap)) {
            readPixels(bitmap);
        }
        return finishedBitmap(std::move(bitmap), profile);
    }

  private:
    template <typename Step>
    void guarded(Step step) {
        if (setjmp(png_jmpbuf(png_)) == 0) {
            step();
        } else {
            throw ImageLoadError::damaged(QString::fromLatin1(reason_.data()));
        }
    }

    [[noreturn]] static void fail(png_structp png, png_const_charp message) {
        auto* reader = static_cast<PngReader*>(png_get_error_ptr(png));
        std::strncpy(reader->reason_.data(), message, reader->reason_.size() - 1);
        png_longjmp(png, 1);
    }

    static void ignoreWarning(png_structp, png_const_charp) {}

    static void read(png_structp png, png_bytep target, size_t count) {
        auto* reader = static_cast<PngReader*>(png_get_io_ptr(png));
        if (count > static_cast<size_t>(reader->bytes_.size() - reader->position_)) {
            png_error(png, "the file ends too early");
        }
        std::memcpy(target, reader->bytes_.constData() + reader->position_, count);
        reader->position_ += static_cast<qsizetype>(count);
    }

    // Read from where every PNG file has it, before libpng looks at anything: the claim alone is
    // enough to refuse a file.
    QSize claimedSize() const {
        constexpr qsizetype widthOffset = 16;
        constexpr qsizetype heightOffset = 20;
        if (bytes_.size() < heightOffset + 4) {
            throw ImageLoadError::damaged(Kestrio::tr("it ends before its size is given"));
        }
        return QSize(qFromBigEndian<qint32>(bytes_.constData() + widthOffset),
                     qFromBigEndian<qint32>(bytes_.constData() + heightOffset));
    }

    QColorSpace colorSpace() const {
        if (png_get_valid(png_, info_, PNG_INFO_iCCP)) {
            png_charp name = nullptr;
            int compression = 0;
            png_bytep data = nullptr;
            png_uint_32 length = 0;
            png_get_iCCP(png_, info_, &name, &compression, &data, &length);
            return colorSpaceOf(QByteArray(reinterpret_cast<const char*>(data), length));
        }
        double fileGamma = 0;
        if (png_get_valid(png_, info_, PNG_INFO_sRGB) || !png_get_gAMA(png_, info_, &fileGamma) ||
            !(fileGamma > 0.01 && fileGamma < 10)) {
            return {};
        }
        // Writers that mean sRGB note the gamma of its closest power curve.
        constexpr double srgbGamma = 0.45455;
        if (std::abs(fileGamma - srgbGamma) < 0.005) return {};
        return QColorSpace(QColorSpace::Primaries::SRgb, static_cast<float>(1 / fileGamma));
    }

    bool isPlain() const {
        const int type = png_get_color_type(png_, info_);
        return (type == PNG_COLOR_TYPE_RGB || type == PNG_COLOR_TYPE_RGBA) &&
               png_get_bit_depth(png_, info_) == 8 && !png_get_valid(png_, info_, PNG_INFO_tRNS) &&
               png_get_interlace_type(png_, info_) == PNG_INTERLACE_NONE;
    }

    void readPixels(QImage& bitmap) {
        uchar* bits = bitmap.bits();
        const qsizetype stride = bitmap.bytesPerLine();
        const int height = bitmap.height();
        guarded([this, bits, stride, height] {
            png_set_expand(png_);
            png_set_scale_16(png_);
            png_set_gray_to_rgb(png_);
            png_set_bgr(png_);
            png_set_add_alpha(png_, 0xff, PNG_FILLER_AFTER);
            const int passes = png_set_interlace_handling(png_);
            png_read_update_info(png_, info_);
            for (int pass = 0; pass < passes; ++pass) {
                for (int y = 0; y < height; ++y)
                    png_read_row(png_, bits + y * stride, nullptr);
            }
            png_read_end(png_, nullptr);
        });
    }

    const QByteArray& bytes_;
    qsizetype position_ = 0;
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
    std::array<char, 128> reason_{};
};

}  // namespace

QImage decodePng(const QByteArray& bytes, const DecodeLimits& limits) {
    return PngReader(bytes).decode(limits);
}

}  // namespace kestrio
