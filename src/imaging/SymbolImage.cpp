#include "imaging/SymbolImage.h"

#include <QImageReader>
#include <QPainter>

namespace kestrio {

QImage symbolImage(const QString& name, const QColor& color, int pixels) {
    QImageReader reader(QStringLiteral(":/kestrio/icons/%1.svg").arg(name));
    reader.setScaledSize({pixels, pixels});
    QImage icon = reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (icon.isNull()) return icon;
    QPainter painter(&icon);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(icon.rect(), color);
    return icon;
}

}  // namespace kestrio
