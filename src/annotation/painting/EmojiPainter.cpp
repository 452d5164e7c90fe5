#include "annotation/painting/KindPainters.h"
#include "annotation/painting/Turn.h"
#include "imaging/filters/Resample.h"
#include "imaging/text/SystemFont.h"

#include <QCache>
#include <QFontMetricsF>
#include <QMutex>
#include <QTextBoundaryFinder>

namespace kestrio {

namespace {

// The size at which the common colour font keeps its pictures.
constexpr double strikeSize = 109;

// What one record may reasonably hold; longer strings are cut.
constexpr int mostPictograms = 32;

/// The string up to mostPictograms, and how many it has.
struct Pictograms {
    QString text;
    int count = 0;
};

Pictograms pictogramsOf(const QString& text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    Pictograms found;
    qsizetype end = 0;
    while (found.count < mostPictograms) {
        const qsizetype next = finder.toNextBoundary();
        if (next < 0) break;
        end = next;
        ++found.count;
    }
    found.text = text.left(end);
    return found;
}

QRect inkOf(const QImage& picture) {
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        const auto isInk = [](QRgb pixel) { return qAlpha(pixel) > 0; };
        const auto* first = std::find_if(row, row + picture.width(), isInk);
        if (first == row + picture.width()) continue;
        int last = picture.width() - 1;
        while (!isInk(row[last]))
            --last;
        ink |= QRect(QPoint(static_cast<int>(first - row), y), QPoint(last, y));
    }
    return ink;
}

/// The pictograms at the font's own size, cut to their ink, letters among them in black; null where
/// there is no ink.
QImage drawnPicture(const QString& text) {
    const QFont font = emojiFont(strikeSize);
    const QFontMetricsF metrics(font);
    constexpr int margin = 32;
    const QSize size(static_cast<int>(metrics.horizontalAdvance(text)) + 2 * margin,
                     static_cast<int>(metrics.height()) + 2 * margin);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) return {};
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(margin, margin + metrics.ascent()), text);
    painter.end();
    const QRect ink = inkOf(picture);
    return ink.isEmpty() ? QImage() : picture.copy(ink);
}

/// drawnPicture() of what was asked for lately: the font unpacks a picture for each drawing. Any
/// thread.
QImage cachedPicture(const QString& text) {
    constexpr int mostPictures = 128;
    static QMutex mutex;
    static QCache<QString, QImage> pictures(mostPictures);
    {
        const QMutexLocker locked(&mutex);
        if (const QImage* known = pictures.object(text)) return *known;
    }
    const QImage picture = drawnPicture(text);
    const QMutexLocker locked(&mutex);
    pictures.insert(text, new QImage(picture));
    return picture;
}

bool isBlack(const QImage& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        if (std::any_of(row, row + picture.width(),
                        [](QRgb pixel) { return (pixel & 0xffffff) != 0; })) {
            return false;
        }
    }
    return true;
}

/// Letters take the record's colour, pictures keep their own.
QImage pictureOf(const QString& text, const QColor& color) {
    QImage picture = cachedPicture(text);
    if (picture.isNull() || !isBlack(picture)) return picture;
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), color);
    return picture;
}

}  // namespace

// A pictogram fills the square of its size; a row of them is as high as one.
void paintRecord(QPainter& painter, const EmojiAnnotation& emoji,
                 const AnnotationMapping& mapping) {
    const double size = emoji.size * mapping.strokeScale;
    constexpr double largest = 16384;
    if (!(size > 0) || size > largest) return;
    const Pictograms pictograms = pictogramsOf(emoji.emoji);
    const QImage picture = pictureOf(pictograms.text, emoji.color.toQColor());
    if (picture.isNull()) return;

    const double scale =
        size / std::max<double>(picture.height(), double(picture.width()) / pictograms.count);
    const QSizeF painted = QSizeF(picture.size()) * scale;
    const QPointF center = mapping.mapped(emoji.center);
    turnAround(painter, center, emoji.rotation);
    QRectF target(QPointF(), painted);
    target.moveCenter(center);
    // Qt's own interpolation is too coarse to shrink by more than half.
    const QImage fitting =
        scale < 1 ? scaledTo(picture, painted.toSize().expandedTo({1, 1})) : picture;
    painter.drawImage(target, fitting);
}

}  // namespace kestrio
