#include "imaging/codecs/WebPDecoder.h"

#include <webp/decode.h>
#include <webp/demux.h>

#include "core/Localisation.h"
#include "imaging/codecs/DecodedBitmap.h"

namespace kestrio {

namespace {

QByteArray iccProfile(const WebPDemuxer* demuxer) {
    WebPChunkIterator chunk;
    QByteArray profile;
    if (WebPDemuxGetChunk(demuxer, "ICCP", 1, &chunk)) {
        profile = QByteArray(reinterpret_cast<const char*>(chunk.chunk.bytes),
                             static_cast<qsizetype>(chunk.chunk.size));
    }
    WebPDemuxReleaseChunkIterator(&chunk);
    return profile;
}

// Lossless frames are decoded into words of their own first; lossy ones need a few rows.
qint64 frameMemory(const WebPIterator& frame) {
    constexpr int lossless = 2;
    WebPBitstreamFeatures features;
    const bool isKnown =
        WebPGetFeatures(frame.fragment.bytes, frame.fragment.size, &features) == VP8_STATUS_OK;
    return isKnown && features.format == lossless ? bitmapBytes({frame.width, frame.height}) : 0;
}

// An animation's frame may cover a part of the canvas; the rest stays transparent.
QImage decodeFrame(const WebPIterator& frame, QSize canvas) {
    const bool covers = QSize(frame.width, frame.height) == canvas;
    const bool opaque = covers && !frame.has_alpha;
    QImage bitmap = allocateBitmap(canvas, opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    if (!covers) bitmap.fill(Qt::transparent);
    const qsizetype stride = bitmap.bytesPerLine();
    uchar* target = bitmap.bits() + frame.y_offset * stride + frame.x_offset * 4;

    WebPDecoderConfig config;
    if (!WebPInitDecoderConfig(&config)) throw ImageLoadError::unsupportedFormat();
    config.options.use_threads = 1;
    config.output.colorspace = MODE_BGRA;
    config.output.is_external_memory = 1;
    config.output.u.RGBA.rgba = target;
    config.output.u.RGBA.stride = static_cast<int>(stride);
    config.output.u.RGBA.size =
        static_cast<size_t>(stride) * (frame.height - 1) + static_cast<size_t>(frame.width) * 4;
    const VP8StatusCode status = WebPDecode(frame.fragment.bytes, frame.fragment.size, &config);
    WebPFreeDecBuffer(&config.output);
    if (status != VP8_STATUS_OK) {
        throw ImageLoadError::damaged(Kestrio::tr("its pixel data ends early or is garbled"));
    }
    return bitmap;
}

}  // namespace

QImage decodeWebP(const QByteArray& bytes, const DecodeLimits& limits) {
    const WebPData data = {reinterpret_cast<const uint8_t*>(bytes.constData()),
                           static_cast<size_t>(bytes.size())};
    const std::unique_ptr<WebPDemuxer, decltype(&WebPDemuxDelete)> demuxer(WebPDemux(&data),
                                                                           WebPDemuxDelete);
    if (!demuxer) {
        throw ImageLoadError::damaged(Kestrio::tr("its chunks end early or are garbled"));
    }
    const auto side = [&](WebPFormatFeature feature) {
        return static_cast<int>(WebPDemuxGetI(demuxer.get(), feature));
    };
    const QSize canvas(side(WEBP_FF_CANVAS_WIDTH), side(WEBP_FF_CANVAS_HEIGHT));
    checkClaimedSize(canvas, limits);
    WebPIterator frame;
    if (!WebPDemuxGetFrame(demuxer.get(), 1, &frame)) {
        throw ImageLoadError::damaged(Kestrio::tr("it holds no frame"));
    }
    const std::unique_ptr<WebPIterator, decltype(&WebPDemuxReleaseIterator)> release(
        &frame, WebPDemuxReleaseIterator);
    checkClaimedSize(canvas, limits, frameMemory(frame));
    return finishedBitmap(decodeFrame(frame, canvas), colorSpaceOf(iccProfile(demuxer.get())));
}

}  // namespace kestrio
