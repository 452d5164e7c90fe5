#include "imaging/codecs/WebPEncoder.h"

#include <webp/encode.h>

#include <new>

#include "core/Localisation.h"
#include "imaging/ExportError.h"
#include "imaging/codecs/StraightAlpha.h"

namespace kestrio {

namespace {

constexpr int losslessLevel = 6;
constexpr int nearLossless = 90;

// Owns what libwebp allocates for one encoding.
class WebPJob {
  public:
    explicit WebPJob(const EncodeHooks& hooks) : hooks_(hooks) {
        WebPMemoryWriterInit(&writer_);
        if (!WebPPictureInit(&picture_)) throw ExportError::renderingFailed();
        picture_.use_argb = 1;
        picture_.writer = WebPMemoryWrite;
        picture_.custom_ptr = &writer_;
        picture_.progress_hook = advance;
        picture_.user_data = this;
    }
    ~WebPJob() {
        WebPPictureFree(&picture_);
        WebPMemoryWriterClear(&writer_);
    }
    WebPJob(const WebPJob&) = delete;
    WebPJob& operator=(const WebPJob&) = delete;

    // The library's own words are 0xAARRGGBB like ours, so rows go straight into its buffer.
    void fill(const QImage& bitmap) {
        picture_.width = bitmap.width();
        picture_.height = bitmap.height();
        if (!WebPPictureAlloc(&picture_)) fail();
        const auto convert = bitmap.format() == QImage::Format_RGB32 ? opaqueRow : unpremultiplyRow;
        for (int y = 0; y < bitmap.height(); ++y) {
            convert(reinterpret_cast<const quint32*>(bitmap.constScanLine(y)),
                    picture_.argb + qsizetype(y) * picture_.argb_stride, bitmap.width());
        }
    }

    QByteArray encode() {
        WebPConfig config;
        if (!WebPConfigInit(&config) || !WebPConfigLosslessPreset(&config, losslessLevel)) {
            throw ExportError::renderingFailed();
        }
        config.image_hint = WEBP_HINT_GRAPH;
        config.thread_level = 1;
        config.near_lossless = nearLossless;
        if (!WebPValidateConfig(&config)) throw ExportError::renderingFailed();
        const bool encoded = WebPEncode(&config, &picture_);
        if (failure_) std::rethrow_exception(failure_);
        if (!encoded) fail();
        if (writer_.size == 0) throw ExportError::renderingFailed();
        return QByteArray(reinterpret_cast<const char*>(writer_.mem),
                          static_cast<qsizetype>(writer_.size));
    }

  private:
    [[noreturn]] void fail() const {
        switch (picture_.error_code) {
            case VP8_ENC_ERROR_USER_ABORT:
                throw ExportError::userCancelled();
            case VP8_ENC_ERROR_OUT_OF_MEMORY:
            case VP8_ENC_ERROR_BITSTREAM_OUT_OF_MEMORY:
                throw std::bad_alloc();
            case VP8_ENC_ERROR_FILE_TOO_BIG:
                throw ExportError::renderingFailed(Kestrio::tr("a WebP file holds at most 4 GiB"));
            default:
                throw ExportError::renderingFailed();
        }
    }

    // No exception may cross the library's frames.
    static int advance(int percent, const WebPPicture* picture) {
        auto* job = static_cast<WebPJob*>(picture->user_data);
        if (job->hooks_.stop.stop_requested()) return 0;
        job->percent_ = std::max(job->percent_, percent);
        try {
            job->hooks_.report(job->percent_ / 100.0);
        } catch (...) {
            job->failure_ = std::current_exception();
            return 0;
        }
        return 1;
    }

    const EncodeHooks& hooks_;
    WebPPicture picture_;
    WebPMemoryWriter writer_;
    int percent_ = 0;
    std::exception_ptr failure_;
};

}  // namespace

QByteArray encodeWebP(const QImage& bitmap, const EncodeHooks& hooks) {
    if (bitmap.isNull()) throw ExportError::renderingFailed();
    WebPJob job(hooks);
    job.fill(bitmap);
    return job.encode();
}

}  // namespace kestrio
