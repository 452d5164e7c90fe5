#include "render/ImageComposer.h"

#include "core/Cancelled.h"
#include "core/Clamp.h"
#include "core/Localisation.h"
#include "imaging/ExportError.h"
#include "imaging/filters/Opacity.h"
#include "imaging/filters/Rotate.h"
#include "render/AnnotationStage.h"
#include "render/ScreenshotGroup.h"
#include "render/backdrop/OverlayPainter.h"

#include <cmath>
#include <limits>
#include <new>
#include <numbers>

namespace kestrio {

namespace {

// What decoders accept too; more would ask for gigabytes for a typing error in a canvas size.
constexpr qint64 mostPixels = 256LL * 1024 * 1024;
constexpr int longestSide = 131072;

constexpr double negligibleTurn = 0.0001;

double turnOf(double degrees) {
    return std::isfinite(degrees) ? std::fmod(degrees, 360.0) : 0.0;
}

// A whole number of pixels that holds `length`, forgiving what rounding in cos and sin adds.
int pixelsHolding(double length) {
    const double nearest = std::round(length);
    const double whole = std::abs(length - nearest) < negligibleTurn ? nearest : std::ceil(length);
    return std::max(1, static_cast<int>(whole));
}

double radiansOf(double degrees) {
    return degrees * std::numbers::pi / 180;
}

// What a picture of this size turned by turnOf() degrees fills.
QSize filledBy(QSize size, double turn) {
    const double cosine = std::abs(std::cos(radiansOf(turn)));
    const double sine = std::abs(std::sin(radiansOf(turn)));
    return {pixelsHolding(size.width() * cosine + size.height() * sine),
            pixelsHolding(size.height() * cosine + size.width() * sine)};
}

void requirePossible(QSize pixels) {
    if (std::max(pixels.width(), pixels.height()) > longestSide) {
        throw ExportError::renderingFailed(
            Kestrio::tr("the picture would have %1 x %2 pixels, at most %3 a side are possible")
                .arg(pixels.width())
                .arg(pixels.height())
                .arg(longestSide));
    }
    if (qint64(pixels.width()) * pixels.height() > mostPixels) {
        throw ExportError::renderingFailed(
            Kestrio::tr("the picture would have %1 x %2 pixels, at most 256 million are possible")
                .arg(pixels.width())
                .arg(pixels.height()));
    }
}

void requirePossible(const CompositeLayout& layout, double rotation) {
    if (!layout.isValid())
        throw ExportError::renderingFailed(Kestrio::tr("the canvas has no size"));
    requirePossible(layout.outputPixels());
    requirePossible(filledBy(layout.outputPixels(), turnOf(rotation)));
}

double ownDensity(const Image& image) {
    return image.pixelSize().width() / image.pointSize().width();
}

// The canvas that was asked for, grown until padding, frame and the whole screenshot fit, in its
// own aspect ratio where it has one.
QSizeF canvasKeepingPixels(const CompositeLayout& layout, const AspectRatio& aspectRatio) {
    const QSizeF needed(layout.imageSize.width() + 2 * layout.padding,
                        layout.imageSize.height() + 2 * layout.padding + layout.titleBarHeight());
    return canvasHolding(needed.expandedTo(layout.canvasSize), aspectRatio);
}

}  // namespace

CompositeLayout compositeLayout(const CompositeRequest& request, double pixelDensity) {
    CompositeLayout layout;
    layout.canvasSize = request.canvasState.canvasSize;
    if (request.outputScale) layout.leastBackdropScale = 0;
    layout.imageSize = request.screenshot.pointSize();
    layout.pixelDensity = request.screenshot.pixelDensity();
    layout.padding = BackdropSettings::paddingRange.clamped(request.backdrop.padding);
    layout.frameStyle = request.frameStyle;
    layout.frameScale = clampedOr(request.frameScale, 0, std::numeric_limits<double>::max());
    double scale = request.outputScale.value_or(pixelDensity);
    if (request.backdrop.keepPixels.value_or(false) && !request.screenshot.isNull()) {
        layout.keepsPixels = true;
        layout.canvasSize = canvasKeepingPixels(layout, request.canvasState.aspectRatio);
        const double own = ownDensity(request.screenshot);
        // A density below 1 counts as 1 elsewhere, which would enlarge the picture.
        if (!request.outputScale) scale = std::min(scale, own);
        layout.isOnWholePixels = scale == own && !request.outputScale;
    }
    layout.outputSize = layout.canvasSize * scale;
    return layout;
}

QImage turned(const QImage& picture, double degrees) {
    const double turn = turnOf(degrees);
    if (std::abs(turn) <= negligibleTurn) return picture;
    const double quarters = std::round(turn / 90);
    if (std::abs(turn - quarters * 90) <= negligibleTurn) {
        return rotatedQuarterTurns(picture, static_cast<int>(quarters));
    }
    return rotated(picture, turn, filledBy(picture.size(), turn));
}

QSize turnedSize(QSize size, double degrees) {
    const double turn = turnOf(degrees);
    return std::abs(turn) <= negligibleTurn ? size : filledBy(size, turn);
}

QSize finishedSize(const CompositeRequest& request) {
    const CompositeLayout layout = compositeLayout(request, request.screenshot.pixelDensity());
    return turnedSize(layout.outputPixels(), request.canvasState.transform.rotation);
}

ImageComposer::ImageComposer(std::shared_ptr<WatermarkServiceProtocol> watermarkService)
    : watermarkService_(std::move(watermarkService)),
      renderQueue_(QStringLiteral("com.kestrio.imagerenderer")) {}

Image ImageComposer::compose(CompositeRequest request, std::stop_token stop) {
    if (request.screenshot.isNull()) throw ExportError::renderingFailed();
    const CompositeLayout layout = compositeLayout(request, request.screenshot.pixelDensity());
    requirePossible(layout, request.canvasState.transform.rotation);
    if (request.watermark) {
        request.screenshot =
            watermarkService_->apply(std::move(request.screenshot), *request.watermark);
    }

    const double scale = layout.backdropScale();
    throwIfStopped(stop);
    QImage output = backdropRenderer_.render(request.backdrop, layout.outputPixels(), scale,
                                             request.backdropDetail);
    // Its size was possible.
    if (output.isNull()) throw std::bad_alloc();
    throwIfStopped(stop);
    backdropRenderer_.applyEffects(output, request.backdrop.effects, scale);

    throwIfStopped(stop);
    paintScreenshotGroup(output, {request.screenshot.bitmap(), request.mockup, layout});
    request.screenshot = {};
    if (const auto& overlay = request.backdrop.overlay;
        overlay && overlay->position == OverlayPosition::overlay) {
        drawOverlay(output, overlay->type, overlay->opacity);
    }

    throwIfStopped(stop);
    drawAnnotations(output, request.annotations, layout, stop);

    throwIfStopped(stop);
    output = turned(output, request.canvasState.transform.rotation);
    if (output.isNull()) throw std::bad_alloc();
    return Image(markedOpaque(std::move(output)));
}

Image ImageComposer::renderBackdrop(const BackdropSettings& backdrop, QSize pixels, double scale) {
    return Image(backdropRenderer_.render(backdrop, pixels, scale));
}

Image ImageComposer::applyEffects(const Image& image, const BackdropEffects& effects,
                                  double scale) {
    QImage bitmap = image.bitmap();
    backdropRenderer_.applyEffects(bitmap, effects, scale);
    return {bitmap, image.pointSize()};
}

}  // namespace kestrio
