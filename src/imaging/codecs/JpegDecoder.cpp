#include "imaging/codecs/JpegDecoder.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>

#include <jerror.h>
#include <jpeglib.h>

#include "core/Localisation.h"
#include "imaging/codecs/DecodedBitmap.h"
#include "imaging/codecs/ExifOrientation.h"

namespace kestrio {

namespace {

constexpr int exifMarker = JPEG_APP0 + 1;
constexpr int iccMarker = JPEG_APP0 + 2;
constexpr unsigned longestMarker = 0xffff;

// Progressive pictures of more scans than any encoder writes only serve to keep decoders busy.
constexpr int mostScans = 256;

// libjpeg's error handling is setjmp: every call that may fail runs inside guarded(), whose steps
// own nothing that needs a destructor.
class JpegReader {
  public:
    explicit JpegReader(const QByteArray& bytes) : bytes_(bytes) {
        jpeg_.err = jpeg_std_error(&errors_);
        jpeg_.client_data = this;
        errors_.error_exit = fail;
        errors_.emit_message = judgeWarning;
        errors_.output_message = [](j_common_ptr) {};
        progress_.progress_monitor = limitScans;
        guarded([this] {
            jpeg_create_decompress(&jpeg_);
            jpeg_.progress = &progress_;
        });
    }
    ~JpegReader() { jpeg_destroy_decompress(&jpeg_); }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    QImage decode(const DecodeLimits& limits) {
        guarded([this] {
            jpeg_mem_src(&jpeg_, reinterpret_cast<const uchar*>(bytes_.constData()),
                         static_cast<unsigned long>(bytes_.size()));
            jpeg_save_markers(&jpeg_, exifMarker, longestMarker);
            jpeg_save_markers(&jpeg_, iccMarker, longestMarker);
            jpeg_read_header(&jpeg_, TRUE);
        });
        const QSize size(static_cast<int>(jpeg_.image_width), static_cast<int>(jpeg_.image_height));
        const QColorSpace profile = colorSpace();
        const int orientation = noted();
        checkClaimedSize(size, limits, std::max(turnedBytes(size, orientation), scanMemory()));
        QImage bitmap = allocateBitmap(size, QImage::Format_RGB32);
        readPixels(bitmap);
        return uprightBitmap(finishedBitmap(std::move(bitmap), profile), orientation);
    }

  private:
    template <typename Step>
    void guarded(Step step) {
        if (setjmp(escape_) == 0) {
            step();
        } else {
            throw ImageLoadError::damaged(QString::fromLatin1(reason_));
        }
    }

    static void fail(j_common_ptr jpeg) {
        auto* reader = static_cast<JpegReader*>(jpeg->client_data);
        jpeg->err->format_message(jpeg, reader->reason_);
        std::longjmp(reader->escape_, 1);
    }

    // Cameras leave small oddities that harm nothing; a file that ends early misses pixels.
    static void judgeWarning(j_common_ptr jpeg, int level) {
        if (level < 0 && jpeg->err->msg_code == JWRN_JPEG_EOF) fail(jpeg);
    }

    static void limitScans(j_common_ptr jpeg) {
        if (reinterpret_cast<j_decompress_ptr>(jpeg)->input_scan_number > mostScans) {
            jpeg->err->msg_code = JERR_BAD_PROGRESSION;
            fail(jpeg);
        }
    }

    QColorSpace colorSpace() {
        JOCTET* data = nullptr;
        unsigned length = 0;
        guarded([&] { jpeg_read_icc_profile(&jpeg_, &data, &length); });
        if (!data) return {};
        const QByteArray profile(reinterpret_cast<const char*>(data), length);
        std::free(data);
        return colorSpaceOf(profile);
    }

    int noted() const {
        constexpr QByteArrayView prefix("Exif\0\0", 6);
        for (auto* marker = jpeg_.marker_list; marker; marker = marker->next) {
            const QByteArrayView data(marker->data, marker->data_length);
            if (marker->marker == exifMarker && data.startsWith(prefix)) {
                return exifOrientation(data.sliced(prefix.size()));
            }
        }
        return 1;
    }

    // Pictures of several scans are held whole as coefficients until the last one has come.
    qint64 scanMemory() {
        if (!jpeg_has_multiple_scans(&jpeg_)) return 0;
        qint64 coefficients = 0;
        for (int index = 0; index < jpeg_.num_components; ++index) {
            const jpeg_component_info& component = jpeg_.comp_info[index];
            coefficients +=
                qint64(component.width_in_blocks) * component.height_in_blocks * DCTSIZE2;
        }
        return coefficients * qint64(sizeof(JCOEF));
    }

    void readPixels(QImage& bitmap) {
        uchar* bits = bitmap.bits();
        const qsizetype stride = bitmap.bytesPerLine();
        guarded([this, bits, stride] {
            const bool fourInks = jpeg_.num_components == 4;
            jpeg_.out_color_space = fourInks ? JCS_CMYK : JCS_EXT_BGRX;
            jpeg_start_decompress(&jpeg_);
            while (jpeg_.output_scanline < jpeg_.output_height) {
                JSAMPROW row = bits + jpeg_.output_scanline * stride;
                jpeg_read_scanlines(&jpeg_, &row, 1);
                if (fourInks) inksToColours(row);
            }
            jpeg_finish_decompress(&jpeg_);
        });
        // BGRX leaves the fourth byte to the decoder's liking.
        for (int y = 0; y < bitmap.height(); ++y) {
            auto* row = reinterpret_cast<quint32*>(bits + y * stride);
            for (int x = 0; x < bitmap.width(); ++x)
                row[x] |= 0xff000000u;
        }
    }

    // Adobe's writers, the only ones met with four inks in practice, store them inverted.
    void inksToColours(uchar* row) const {
        const uchar inversion = jpeg_.saw_Adobe_marker ? 0 : 0xff;
        for (JDIMENSION x = 0; x < jpeg_.output_width; ++x, row += 4) {
            const int cyan = row[0] ^ inversion, magenta = row[1] ^ inversion;
            const int yellow = row[2] ^ inversion, black = row[3] ^ inversion;
            row[0] = static_cast<uchar>((yellow * black + 127) / 255);
            row[1] = static_cast<uchar>((magenta * black + 127) / 255);
            row[2] = static_cast<uchar>((cyan * black + 127) / 255);
        }
    }

    const QByteArray& bytes_;
    jpeg_decompress_struct jpeg_{};
    jpeg_error_mgr errors_{};
    jpeg_progress_mgr progress_{};
    std::jmp_buf escape_;
    char reason_[JMSG_LENGTH_MAX] = {};
};

}  // namespace

QImage decodeJpeg(const QByteArray& bytes, const DecodeLimits& limits) {
    return JpegReader(bytes).decode(limits);
}

}  // namespace kestrio
