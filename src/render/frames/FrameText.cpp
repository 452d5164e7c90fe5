#include "render/frames/FrameText.h"

#include "imaging/text/SystemFont.h"

#include <QFontMetricsF>
#include <QPainterPath>

namespace kestrio {

namespace {

// Text is laid out at this size and scaled, so that widths grow evenly with the scale.
constexpr double layoutSize = 64;

QFont layoutFont(FrameTextWeight weight) {
    return systemFont(layoutSize,
                      weight == FrameTextWeight::medium ? QFont::Medium : QFont::Normal);
}

}  // namespace

QString placeholderHost() {
    return QStringLiteral("example.com");
}

double frameTextWidth(const FrameText& text) {
    return QFontMetricsF(layoutFont(text.weight)).horizontalAdvance(text.text) * text.size /
           layoutSize;
}

void paintFrameText(QPainter& painter, const FrameText& text, QPointF place) {
    const QFont font = layoutFont(text.weight);
    const double capHeight = QFontMetricsF(font).capHeight();
    QPainterPath path;
    path.addText(0, capHeight / 2, font, text.text);
    painter.save();
    painter.translate(place);
    painter.scale(text.size / layoutSize, text.size / layoutSize);
    painter.fillPath(path, text.color);
    painter.restore();
}

}  // namespace kestrio
