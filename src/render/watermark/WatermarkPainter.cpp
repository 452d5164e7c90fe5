#include "render/watermark/WatermarkPainter.h"

#include "core/Clamp.h"
#include "imaging/codecs/DecodedPictures.h"
#include "imaging/filters/Resample.h"
#include "imaging/text/SystemFont.h"

#include <QFontMetricsF>
#include <QPainter>

namespace kestrio {

namespace {

// Text is laid out at this size and scaled, so that the mark keeps its shape at every density.
constexpr double layoutSize = 64;

double boxWidth(double imageWidth, const WatermarkSettings& settings) {
    return imageWidth * clampedOr(settings.scale, 0, WatermarkSettings::scaleRange.greatest);
}

double axisPlace(int alignment, double outer, double inner, double offset) {
    if (alignment < 0) return offset;
    return alignment == 0 ? (outer - inner) * 0.5 : outer - inner - offset;
}

QPointF pixelsPerPoint(const Image& image) {
    return {image.pixelSize().width() / image.pointSize().width(),
            image.pixelSize().height() / image.pointSize().height()};
}

Image paintText(Image image, const WatermarkSettings& settings, double opacity) {
    const QSizeF mark = textMarkSize(image.pointSize().width(), settings);
    if (mark.isEmpty()) return image;
    const QPointF centre = watermarkRect(image.pointSize(), mark, settings).center();
    const QPointF density = pixelsPerPoint(image);
    const double fontScale = mark.height() * 0.7 / layoutSize;

    const QSizeF pointSize = image.pointSize();
    QImage marked = std::move(image).takeBitmap();
    QPainter painter(&marked);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    painter.scale(density.x(), density.y());
    painter.translate(centre);
    painter.scale(fontScale, fontScale);
    painter.setFont(fontOrSystemFont(settings.fontName, layoutSize));
    painter.setPen(settings.textColor.withAlphaTimes(opacity).toQColor());
    painter.drawText(QRectF(-1, -1, 2, 2), Qt::AlignCenter | Qt::TextDontClip,
                     settings.textContent);
    painter.end();
    return {marked, pointSize};
}

Image paintImage(Image image, const WatermarkSettings& settings, double opacity) {
    const QImage picture = stylePicture(settings.imageData);
    const double width = boxWidth(image.pointSize().width(), settings);
    if (picture.isNull() || width <= 0) return image;
    const QSizeF mark(width, width * picture.height() / picture.width());
    const QRectF rect = watermarkRect(image.pointSize(), mark, settings);
    const QPointF density = pixelsPerPoint(image);

    const QSizeF pointSize = image.pointSize();
    QImage marked = std::move(image).takeBitmap();
    ScaledDraw draw;
    draw.target = {rect.x() * density.x(), rect.y() * density.y(), rect.width() * density.x(),
                   rect.height() * density.y()};
    draw.opacity = opacity;
    drawScaled(marked, picture, draw);
    return {marked, pointSize};
}

}  // namespace

QSizeF textMarkSize(double imageWidth, const WatermarkSettings& settings) {
    const double box = boxWidth(imageWidth, settings);
    if (box <= 0 || settings.textContent.isEmpty()) return {};
    const QFontMetricsF metrics(fontOrSystemFont(settings.fontName, layoutSize));
    const QSizeF text = metrics.size(0, settings.textContent) * (box * 0.3 / layoutSize);
    return {std::max(text.width() * 1.2, box * 0.5), text.height() * 1.2};
}

QRectF watermarkRect(QSizeF image, QSizeF mark, const WatermarkSettings& settings) {
    // The positions count row by row from the top left.
    const int place = static_cast<int>(settings.position);
    const int column = place % 3 - 1;
    const int row = place / 3 - 1;
    return {QPointF(axisPlace(column, image.width(), mark.width(), settings.offsetX),
                    axisPlace(row, image.height(), mark.height(), settings.offsetY)),
            mark};
}

Image paintWatermark(Image image, const WatermarkSettings& settings) {
    const double opacity = WatermarkSettings::opacityRange.clamped(settings.opacity);
    if (image.isNull() || image.pointSize().isEmpty()) return image;
    return settings.type == WatermarkType::text ? paintText(std::move(image), settings, opacity)
                                                : paintImage(std::move(image), settings, opacity);
}

}  // namespace kestrio
