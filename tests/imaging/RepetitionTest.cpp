#include "support/Repetition.h"

#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/ImageEncoder.h"
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
    expectTheSameEveryTime([&] { return coverageOf(rasterise(outline, bounds, Qt::OddEvenFill)); });
}

QImage dashboard() {
    return loadImageFile(
        QStringLiteral(KESTRIO_SOURCE_DIR "/tests/support/pictures/dashboard-4k.png"));
}

/// For formats whose coders have no bands of ours; what their libraries share would show as well.
constexpr QSize small(160, 100);

TEST(Repetition, EncodersWriteTheSameBytes) {
    const QImage picture = dashboard();
    expectTheSameEveryTime([&] { return encodeImage(picture, ExportFormat::png); });
    const QImage part = picture.copy(QRect(QPoint(), small));
    for (const ExportFormat format : {ExportFormat::jpeg, ExportFormat::webp})
        expectTheSameEveryTime([&] { return encodeImage(part, format); });
}

TEST(Repetition, DecodersReadTheSamePixels) {
    const QImage picture = dashboard();
    const QByteArray png = encodeImage(picture, ExportFormat::png);
    expectTheSameEveryTime([&] { return decodeImage(png); });
    const QImage part = picture.copy(QRect(QPoint(), small));
    for (const ExportFormat format : {ExportFormat::jpeg, ExportFormat::webp}) {
        const QByteArray bytes = encodeImage(part, format);
        expectTheSameEveryTime([&] { return decodeImage(bytes); });
    }
}

}  // namespace
}  // namespace kestrio
