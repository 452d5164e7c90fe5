#include "support/Repetition.h"

#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/ImageEncoder.h"
#include "imaging/codecs/TestPictures.h"
#include "imaging/filters/Mask.h"

#include <QPainterPath>

namespace kestrio {
namespace {

// Of the size that screens have: several bands, strips and pieces.
constexpr QSize screen(3840, 2160);

std::vector<std::uint8_t> coverageOf(const Mask& mask) {
    return {mask.row(0), mask.row(0) + qsizetype(screen.width()) * screen.height()};
}

/// A window's outline whose lower edge has so many points that the first thread is still preparing
/// the path for its painter when the second one comes.
QPainterPath denseOutline() {
    constexpr int points = 20000;
    QPolygonF outline;
    outline << QPointF(3800.5, 2100.5) << QPointF(3800.5, 40.5) << QPointF(40.5, 40.5);
    for (int i = 0; i <= points; ++i)
        outline << QPointF(40.5 + 3760.0 * i / points, 2100.5);
    QPainterPath path;
    path.addPolygon(outline);
    return path;
}

TEST(Repetition, MasksAreTheSameWithEveryThread) {
    // A path that was painted before is prepared already; this one never is.
    QPainterPath outline = denseOutline();
    outline.setFillRule(Qt::WindingFill);
    const QRect bounds(QPoint(), screen);
    expectTheSameEveryTime(
        [&] { return coverageOf(rasterise(outline, bounds, Qt::OddEvenFill)); });
}

TEST(Repetition, EncodersWriteTheSameBytes) {
    const QImage picture =
        testPicture(screen.width(), screen.height(), QImage::Format_ARGB32_Premultiplied);
    expectTheSameEveryTime([&] { return encodeImage(picture, ExportFormat::png); });
    // These use no bands; several calls at once are what could disturb them.
    const QImage small = picture.copy(0, 0, 320, 200);
    for (const ExportFormat format : {ExportFormat::jpeg, ExportFormat::webp})
        expectTheSameEveryTime([&] { return encodeImage(small, format); });
}

TEST(Repetition, DecodersReadTheSamePixels) {
    const QImage picture =
        testPicture(screen.width(), screen.height(), QImage::Format_ARGB32_Premultiplied);
    const QByteArray png = encodeImage(picture, ExportFormat::png);
    expectTheSameEveryTime([&] { return decodeImage(png); });
    const QByteArray jpeg = encodeImage(picture.copy(0, 0, 800, 600), ExportFormat::jpeg);
    expectTheSameEveryTime([&] { return decodeImage(jpeg); });
    const QByteArray webp = encodeImage(picture.copy(0, 0, 320, 200), ExportFormat::webp);
    expectTheSameEveryTime([&] { return decodeImage(webp); });
}

}  // namespace
}  // namespace kestrio
