#include "imaging/codecs/JpegEncoder.h"

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <new>

#include <jpeglib.h>

#include <jerror.h>

#include "core/Simd.h"
#include "imaging/ExportError.h"

namespace kestrio {

namespace {

constexpr int quality = 90;
constexpr int rowsPerStep = 64;
constexpr int outOfMemory = JERR_OUT_OF_MEMORY;

KESTRIO_SIMD void layOverWhite(const quint32* source, quint32* target, int count) {
    for (int x = 0; x < count; ++x) {
        // Premultiplied colours never exceed alpha, so the sum does not carry into its neighbour.
        target[x] = source[x] + (255 - (source[x] >> 24)) * 0x010101u;
    }
}

// libjpeg's error handling is setjmp: every call that may fail runs inside guarded(), whose steps
// own nothing that needs a destructor.
class JpegJob {
  public:
    explicit JpegJob(const QImage& bitmap) : bitmap_(bitmap) {
        jpeg_.err = jpeg_std_error(&errors_);
        jpeg_.client_data = this;
        errors_.error_exit = [](j_common_ptr jpeg) {
            std::longjmp(static_cast<JpegJob*>(jpeg->client_data)->escape_, 1);
        };
        errors_.output_message = [](j_common_ptr) {};
        guarded([this] { jpeg_create_compress(&jpeg_); });
        if (bitmap.format() != QImage::Format_RGB32) row_.resize(bitmap.width());
    }
    ~JpegJob() {
        jpeg_destroy_compress(&jpeg_);
        std::free(bytes_);
    }
    JpegJob(const JpegJob&) = delete;
    JpegJob& operator=(const JpegJob&) = delete;

    QByteArray encode(const EncodeHooks& hooks) {
        guarded([this] { start(); });
        for (int first = 0; first < bitmap_.height(); first += rowsPerStep) {
            if (hooks.stop.stop_requested()) throw ExportError::userCancelled();
            const int last = std::min(first + rowsPerStep, bitmap_.height());
            guarded([this, first, last] { writeRows(first, last); });
            hooks.report(double(last) / bitmap_.height());
        }
        guarded([this] { jpeg_finish_compress(&jpeg_); });
        return QByteArray(reinterpret_cast<const char*>(bytes_), static_cast<qsizetype>(size_));
    }

  private:
    template <typename Step>
    void guarded(Step step) {
        if (setjmp(escape_) == 0) {
            step();
        } else {
            fail();
        }
    }

    [[noreturn]] void fail() {
        if (errors_.msg_code == outOfMemory) throw std::bad_alloc();
        char reason[JMSG_LENGTH_MAX];
        errors_.format_message(reinterpret_cast<j_common_ptr>(&jpeg_), reason);
        throw ExportError::renderingFailed(QString::fromUtf8(reason));
    }

    void start() {
        jpeg_mem_dest(&jpeg_, &bytes_, &size_);
        jpeg_.image_width = static_cast<JDIMENSION>(bitmap_.width());
        jpeg_.image_height = static_cast<JDIMENSION>(bitmap_.height());
        jpeg_.input_components = 4;
        jpeg_.in_color_space = JCS_EXT_BGRX;
        jpeg_set_defaults(&jpeg_);
        jpeg_set_quality(&jpeg_, quality, TRUE);
        jpeg_.comp_info[0].h_samp_factor = 1;
        jpeg_.comp_info[0].v_samp_factor = 1;
        jpeg_start_compress(&jpeg_, TRUE);
    }

    void writeRows(int first, int last) {
        for (int y = first; y < last; ++y) {
            const auto* source = reinterpret_cast<const quint32*>(bitmap_.constScanLine(y));
            if (!row_.empty()) {
                layOverWhite(source, row_.data(), bitmap_.width());
                source = row_.data();
            }
            auto* row = const_cast<JSAMPROW>(reinterpret_cast<const JSAMPLE*>(source));
            jpeg_write_scanlines(&jpeg_, &row, 1);
        }
    }

    const QImage& bitmap_;
    std::vector<quint32> row_;
    jpeg_compress_struct jpeg_{};
    jpeg_error_mgr errors_{};
    std::jmp_buf escape_;
    unsigned char* bytes_ = nullptr;
    unsigned long size_ = 0;
};

}  // namespace

QByteArray encodeJpeg(const QImage& bitmap, const EncodeHooks& hooks) {
    return JpegJob(bitmap).encode(hooks);
}

}  // namespace kestrio
