#include "render/RenderFixtures.h"

#include <QPainter>

namespace kestrio {

QImage testScreenshot(QSize pixels) {
    QImage image(pixels, QImage::Format_RGB32);
    image.fill(QColor(248, 249, 251));
    QPainter painter(&image);
    painter.scale(pixels.width() / 240.0, pixels.height() / 150.0);
    painter.fillRect(0, 0, 60, 150, QColor(24, 32, 58));
    painter.fillRect(70, 10, 160, 24, QColor(72, 120, 240));
    for (int row = 0; row < 8; ++row) {
        painter.fillRect(70, 46 + row * 12, 60 + (row * 37) % 90, 5, QColor(200, 205, 214));
    }
    painter.fillRect(186, 90, 44, 50, QColor(240, 110, 90));
    return image;
}

ImageComposer& testComposer() {
    static ImageComposer composer(
        std::make_shared<WatermarkService>(std::make_shared<MemoryUserDefaults>()));
    return composer;
}

CompositeRequest requestOf(const QImage& bitmap, const EditorStyleSettings& style) {
    CompositeRequest request;
    request.screenshot = Image(bitmap);
    request.setStyle(style);
    request.canvasState.canvasSize = request.screenshot.pointSize();
    return request;
}

EditorStyleSettings bareStyle() {
    EditorStyleSettings style;
    style.backdrop.type = BackdropType::none;
    style.backdrop.padding = 0;
    style.mockup.cornerRadius = 0;
    style.mockup.shadowEnabled = false;
    return style;
}

double meanDifference(const QImage& first, const QImage& second) {
    const QImage a = first.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage b = second.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        const uchar* rowA = a.constScanLine(y);
        const uchar* rowB = b.constScanLine(y);
        for (int x = 0; x < a.width() * 4; ++x)
            sum += std::abs(rowA[x] - rowB[x]);
    }
    return sum / (4.0 * a.width() * a.height());
}

}  // namespace kestrio
