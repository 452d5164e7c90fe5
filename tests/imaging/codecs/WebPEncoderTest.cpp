#include "imaging/codecs/WebPEncoder.h"

#include <webp/decode.h>
#include <webp/encode.h>

#include <gtest/gtest.h>

#include "imaging/ExportError.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/TestPictures.h"

namespace kestrio {
namespace {

// The same encoding through libwebp's import of RGBA bytes.
QByteArray encodedThroughImport(const QImage& bitmap) {
    std::vector<uint8_t> rgba;
    for (int y = 0; y < bitmap.height(); ++y) {
        const auto* row = reinterpret_cast<const quint32*>(bitmap.constScanLine(y));
        for (int x = 0; x < bitmap.width(); ++x) {
            const int alpha = bitmap.hasAlphaChannel() ? qAlpha(row[x]) : 255;
            const auto straight = [&](int colour) {
                if (alpha == 0 || alpha == 255) return static_cast<uint8_t>(colour);
                return static_cast<uint8_t>(std::min(255, (colour * 255 + alpha / 2) / alpha));
            };
            rgba.insert(rgba.end(), {straight(qRed(row[x])), straight(qGreen(row[x])),
                                     straight(qBlue(row[x])), static_cast<uint8_t>(alpha)});
        }
    }
    WebPConfig config;
    WebPConfigInit(&config);
    WebPConfigLosslessPreset(&config, 6);
    config.image_hint = WEBP_HINT_GRAPH;
    config.thread_level = 1;
    config.near_lossless = 90;
    WebPPicture picture;
    WebPPictureInit(&picture);
    picture.use_argb = 1;
    picture.width = bitmap.width();
    picture.height = bitmap.height();
    WebPPictureImportRGBA(&picture, rgba.data(), bitmap.width() * 4);
    WebPMemoryWriter writer;
    WebPMemoryWriterInit(&writer);
    picture.writer = WebPMemoryWrite;
    picture.custom_ptr = &writer;
    WebPEncode(&config, &picture);
    const QByteArray bytes(reinterpret_cast<const char*>(writer.mem),
                           static_cast<qsizetype>(writer.size));
    WebPPictureFree(&picture);
    WebPMemoryWriterClear(&writer);
    return bytes;
}

TEST(WebPEncoder, BytesAreThoseOfTheImportedPicture) {
    for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied}) {
        for (const QSize size : {QSize(1, 1), QSize(3, 7), QSize(150, 90)}) {
            QImage bitmap = testPicture(size.width(), size.height(), format);
            // Painters may leave anything in the unused byte.
            if (format == QImage::Format_RGB32) bitmap.bits()[3] = 7;
            EXPECT_EQ(encodeWebP(bitmap), encodedThroughImport(bitmap)) << size.width();
        }
    }
}

TEST(WebPEncoder, DividesColoursByAlpha) {
    QImage bitmap(3, 1, QImage::Format_ARGB32_Premultiplied);
    auto* pixels = reinterpret_cast<quint32*>(bitmap.bits());
    pixels[0] = 0x01010100;
    pixels[1] = 0x80402000;
    pixels[2] = 0xff102030;
    const QByteArray bytes = encodeWebP(bitmap);
    QImage straight(3, 1, QImage::Format_ARGB32);
    ASSERT_NE(WebPDecodeBGRAInto(reinterpret_cast<const uint8_t*>(bytes.constData()),
                                 static_cast<size_t>(bytes.size()), straight.bits(), 12, 12),
              nullptr);
    EXPECT_EQ(straight.pixel(0, 0), 0x01ffff00u);
    EXPECT_EQ(straight.pixel(1, 0), 0x80804000u);
    EXPECT_EQ(straight.pixel(2, 0), 0xff102030u);
}

TEST(WebPEncoder, RefusesWhatTheFormatCannotHoldAndStopsOnRequest) {
    const auto failure = [](const QImage& bitmap, const EncodeHooks& hooks) {
        try {
            encodeWebP(bitmap, hooks);
        } catch (const ExportError& error) {
            return std::optional(error.errorCase());
        }
        return std::optional<ExportError::Case>();
    };
    QImage tooWide(16384, 1, QImage::Format_RGB32);
    tooWide.fill(Qt::white);
    EXPECT_EQ(failure(tooWide, {}), ExportError::Case::renderingFailed);
    EXPECT_EQ(failure(QImage(), {}), ExportError::Case::renderingFailed);

    const QImage bitmap = testPicture(64, 64, QImage::Format_RGB32);
    std::stop_source source;
    int reports = 0;
    const EncodeHooks stopping{[&](double fraction) {
                                   ++reports;
                                   EXPECT_LT(fraction, 1.0);
                                   source.request_stop();
                               },
                               source.get_token()};
    EXPECT_EQ(failure(bitmap, stopping), ExportError::Case::userCancelled);
    EXPECT_EQ(reports, 1);

    struct Thrown {};
    EXPECT_THROW(encodeWebP(bitmap, {[](double) { throw Thrown(); }, {}}), Thrown);
}

TEST(WebPEncoder, DecodesNearlyUnchanged) {
    for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied}) {
        const QImage bitmap = testPicture(131, 75, format);
        const QImage decoded = decodeImage(encodeWebP(bitmap));
        EXPECT_EQ(decoded.format(), format);
        EXPECT_LE(largestDifference(decoded, bitmap), 2);
    }
}

}  // namespace
}  // namespace kestrio
