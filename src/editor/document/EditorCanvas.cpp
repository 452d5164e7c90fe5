#include "annotation/editing/BadgeNumbers.h"
#include "editor/document/EditorViewModel.h"

#include <cmath>

namespace kestrio {

namespace {

constexpr double leastZoom = 0.1, greatestZoom = 5;

/// The largest rectangle of a ratio within `rect`, around its middle.
QRectF fitted(const QRectF& rect, double ratio) {
    QSizeF size(rect.width(), rect.width() / ratio);
    if (size.height() > rect.height()) size = {rect.height() * ratio, rect.height()};
    QRectF result(QPointF(), size);
    result.moveCenter(rect.center());
    return result;
}

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
    annotatesAfterPicking_ = false;
    stopPicking();
    set_cropRect(QRectF(QPointF(), screenshot().pointSize()));
    set_isCropMode(true);
}

void EditorViewModel::setCropRatio(std::optional<double> ratio) {
    if (ratio && !(*ratio > 0 && std::isfinite(*ratio))) return;
    set_cropLockAspectRatio(ratio.has_value());
    set_cropLockedRatio(ratio);
    if (ratio && isCropMode()) set_cropRect(fitted(cropRect(), *ratio));
}

void EditorViewModel::applyCrop() {
    if (!isCropMode()) return;
    const QRect pixels = cropRect().isEmpty() ? QRect() : touchedPixels(screenshot(), cropRect());
    if (!pixels.isEmpty()) crop(pixels);
    leaveCropMode();
    if (!pixels.isEmpty()) recordSnapshot();
}

void EditorViewModel::crop(const QRect& pixels) {
    const double scale = pixelsPerPoint(screenshot());
    const QRectF part(QPointF(pixels.topLeft()) / scale, QSizeF(pixels.size()) / scale);
    if (const auto& original = screenshotBeforeEnhancement_) {
        setOriginal(Image(original->bitmap().copy(touchedPixels(*original, part)), part.size()));
    }
    const Image image(screenshot().bitmap().copy(pixels), scale);
    set_screenshot(image);
    CanvasState canvas = canvasState();
    canvas.canvasSize = canvasHolding(image.pointSize(), canvas.aspectRatio);
    canvas.transform = {};
    set_canvasState(canvas);

    annotationVM_.setAnnotations(annotations_);
    annotationVM_.translateAll(-part.topLeft());
    setAnnotations(annotationVM_.annotations());
}

void EditorViewModel::cancelCrop() {
    leaveCropMode();
}

void EditorViewModel::leaveCropMode() {
    set_isCropMode(false);
    set_cropRect({});
    set_cropLockAspectRatio(false);
    set_cropLockedRatio(std::nullopt);
    CanvasState canvas = canvasState();
    canvas.cropRect = std::nullopt;
    canvas.isCropping = false;
    set_canvasState(canvas);
}

}  // namespace kestrio
