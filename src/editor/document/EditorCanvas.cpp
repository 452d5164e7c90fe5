#include "annotation/editing/BadgeNumbers.h"
#include "editor/document/EditorViewModel.h"

#include <cmath>

namespace kestrio {

namespace {

constexpr double leastZoom = 0.1, greatestZoom = 5;

double pixelsPerPoint(const Image& image) {
    return image.bitmap().width() / image.pointSize().width();
}

/// The pixels that a rectangle of a picture touches, in the picture's points.
QRect touchedPixels(const Image& image, const QRectF& rect) {
    const double scale = pixelsPerPoint(image);
    return QRectF(rect.topLeft() * scale, rect.size() * scale).toAlignedRect() &
           image.bitmap().rect();
}

}  // namespace

void EditorViewModel::turnBy(double degrees) {
    CanvasState canvas = canvasState();
    double turned = canvas.transform.rotation + degrees;
    if (turned >= 360) turned -= 360;
    if (turned < 0) turned += 360;
    canvas.transform.rotation = turned;
    set_canvasState(canvas);
    recordSnapshot();
}

void EditorViewModel::setZoom(double scale) {
    if (!std::isfinite(scale)) return;
    CanvasState canvas = canvasState();
    canvas.transform.scale = std::clamp(scale, leastZoom, greatestZoom);
    set_canvasState(canvas);
}

void EditorViewModel::setZoomText(const QString& percent) {
    QString digits = percent;
    // As the field shows it.
    if (digits.endsWith(u'%')) digits.chop(digits.endsWith(u" %") ? 2 : 1);
    if (const auto value = wholeNumber(digits)) setZoom(static_cast<double>(*value) / 100);
}

void EditorViewModel::enterCropMode() {
    if (screenshot().isNull() || isCropMode()) return;
    leaveAnnotationMode();
    annotationSession_.abandonPicking();
    cropSession_.begin(screenshot().pointSize());
}

void EditorViewModel::applyCrop() {
    if (!isCropMode()) return;
    const QRectF rect = cropSession_.cropRect();
    const QRect pixels = rect.isEmpty() ? QRect() : touchedPixels(screenshot(), rect);
    if (!pixels.isEmpty()) crop(pixels);
    cancelCrop();
    if (!pixels.isEmpty()) recordSnapshot();
}

void EditorViewModel::crop(const QRect& pixels) {
    const double scale = pixelsPerPoint(screenshot());
    const QRectF part(QPointF(pixels.topLeft()) / scale, QSizeF(pixels.size()) / scale);
    if (const auto original = enhancement_.original()) {
        enhancement_.setOriginal(
            Image(original->bitmap().copy(touchedPixels(*original, part)), part.size()));
    }
    const Image image(screenshot().bitmap().copy(pixels), scale);
    set_screenshot(image);
    CanvasState canvas = canvasState();
    canvas.canvasSize = canvasHolding(image.pointSize(), canvas.aspectRatio);
    canvas.transform = {};
    set_canvasState(canvas);

    annotationSession_.translate(-part.topLeft());
}

void EditorViewModel::cancelCrop() {
    cropSession_.end();
    CanvasState canvas = canvasState();
    canvas.cropRect = std::nullopt;
    canvas.isCropping = false;
    set_canvasState(canvas);
}

}  // namespace kestrio
