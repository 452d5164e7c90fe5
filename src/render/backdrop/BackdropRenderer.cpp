#include "render/backdrop/BackdropRenderer.h"

#include "imaging/filters/ColorAdjust.h"
#include "imaging/filters/GaussianBlur.h"
#include "imaging/filters/Resample.h"
#include "render/backdrop/Grain.h"
#include "render/backdrop/LinearGradient.h"
#include "render/backdrop/OverlayPainter.h"
#include "render/backdrop/PatternPainter.h"
#include "render/style/GradientPreset.h"

namespace kestrio {

namespace {

// What shows where a fill lacks its colour, gradient or picture.
constexpr CodableColor missingFill{0.5, 0.5, 0.5, 1};

void fillSolid(QImage& bitmap, const CodableColor& color) {
    bitmap.fill(color.toQColor());
}

QPointF pointIn(const QImage& bitmap, CodableUnitPoint unit) {
    return {unit.x * bitmap.width(), unit.y * bitmap.height()};
}

std::optional<LinearGradient> gradientOf(const QImage& bitmap, const BackdropSettings& backdrop) {
    const auto& custom = backdrop.customGradientColors;
    if (custom && custom->size() >= 2) {
        return LinearGradient{*custom, pointIn(bitmap, {0, 0}), pointIn(bitmap, {1, 1})};
    }
    const auto* preset = GradientPreset::find(backdrop.gradientPreset.value_or(QString()));
    if (!preset) return std::nullopt;
    return LinearGradient{preset->colors, pointIn(bitmap, preset->startPoint),
                          pointIn(bitmap, preset->endPoint)};
}

double clampedOpacity(const BackdropSettings& backdrop) {
    return BackdropSettings::opacityRange.clamped(backdrop.opacity);
}

}  // namespace

QRectF placedImage(QSizeF image, const QRectF& area, ImageScaleFit fit) {
    if (fit == ImageScaleFit::stretch) return area;
    const double imageAspect = image.width() / image.height();
    const bool areaIsNarrower = area.width() / area.height() < imageAspect;
    // Covering takes the axis that overhangs, showing all takes the other one.
    const bool byHeight = areaIsNarrower == (fit == ImageScaleFit::fill);
    const QSizeF size = byHeight ? QSizeF(area.height() * imageAspect, area.height())
                                 : QSizeF(area.width(), area.width() / imageAspect);
    return {QPointF(area.center().x() - size.width() / 2, area.center().y() - size.height() / 2),
            size};
}

QImage BackdropRenderer::render(const BackdropSettings& backdrop, QSize pixels, double scale,
                                PictureDetail detail) const {
    QImage bitmap(pixels, QImage::Format_ARGB32_Premultiplied);
    if (bitmap.isNull()) return bitmap;
    fill(bitmap, backdrop, scale, detail);
    if (backdrop.pattern && backdrop.pattern->type != PatternType::none) {
        drawPattern(bitmap, *backdrop.pattern, scale);
    }
    if (backdrop.overlay && backdrop.overlay->position == OverlayPosition::underlay) {
        drawOverlay(bitmap, backdrop.overlay->type, backdrop.overlay->opacity);
    }
    return bitmap;
}

void BackdropRenderer::fill(QImage& bitmap, const BackdropSettings& backdrop, double scale,
                            PictureDetail detail) const {
    const double opacity = clampedOpacity(backdrop);
    switch (backdrop.type) {
        case BackdropType::none:
            bitmap.fill(Qt::transparent);
            break;
        case BackdropType::solid:
            fillSolid(bitmap, backdrop.solidColor ? backdrop.solidColor->withAlphaTimes(opacity)
                                                  : missingFill);
            break;
        case BackdropType::gradient:
            if (auto gradient = gradientOf(bitmap, backdrop)) {
                for (CodableColor& color : gradient->colors)
                    color = color.withAlphaTimes(opacity);
                fillLinearGradient(bitmap, *gradient);
            } else {
                fillSolid(bitmap, missingFill);
            }
            break;
        case BackdropType::image:
            fillWithImage(bitmap, backdrop, scale, detail);
            break;
    }
}

void BackdropRenderer::fillWithImage(QImage& bitmap, const BackdropSettings& backdrop, double scale,
                                     PictureDetail detail) const {
    const ImageBackdropSettings settings = backdrop.imageSettings.value_or(ImageBackdropSettings());
    const QImage image = stylePicture(settings.imageData, detail);
    if (image.isNull()) {
        fillSolid(bitmap, missingFill);
        return;
    }
    bitmap.fill(Qt::transparent);
    ScaledDraw draw;
    draw.target = placedImage(image.size(), QRectF(bitmap.rect()), settings.scaleFit);
    draw.opacity = ImageBackdropSettings::opacityRange.clamped(settings.opacity) / 100 *
                   clampedOpacity(backdrop);
    drawScaled(bitmap, image, draw);
    const double blur = ImageBackdropSettings::blurRange.clamped(settings.blur) * scale;
    if (blur > 0) filterQueue_.sync([&] { gaussianBlur(bitmap, blur); });
}

void BackdropRenderer::applyEffects(QImage& bitmap, const BackdropEffects& effects,
                                    double scale) const {
    const double blur = BackdropEffects::blurRange.clamped(effects.blur);
    const double noise = BackdropEffects::noiseRange.clamped(effects.noise);
    const double saturation = BackdropEffects::saturationRange.clamped(effects.saturation);
    if (blur > 0 || saturation != 100) {
        filterQueue_.sync([&] {
            if (blur > 0) gaussianBlur(bitmap, blur * scale);
            if (saturation != 100) adjustSaturation(bitmap, saturation / 100);
        });
    }
    if (noise > 0) drawBackdropGrain(bitmap, noise / 100, scale);
}

}  // namespace kestrio
