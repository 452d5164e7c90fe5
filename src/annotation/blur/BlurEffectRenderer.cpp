#include "annotation/blur/BlurEffectRenderer.h"

#include "annotation/blur/BlurGeometry.h"
#include "annotation/blur/RenderGroup.h"
#include "core/Parallel.h"
#include "imaging/filters/BlackCover.h"
#include "imaging/filters/GaussianBlur.h"
#include "imaging/filters/Mosaic.h"

#include <QColorSpace>
#include <new>

namespace kestrio {

namespace {

constexpr double leastCell = 4;  // pixels

/// Copies the bitmap unless nobody else holds it. On all cores: with one strength and little
/// covered, copying is most of the work.
void makeOwn(QImage& bitmap) {
    if (bitmap.isDetached()) return;
    QImage own(bitmap.size(), bitmap.format());
    if (own.isNull()) throw std::bad_alloc();
    own.setDevicePixelRatio(bitmap.devicePixelRatio());
    own.setColorSpace(bitmap.colorSpace());
    const qsizetype length = std::min(bitmap.bytesPerLine(), own.bytesPerLine());
    uchar* const to = own.bits();
    parallelBands(bitmap.height(), 64, [&](int first, int last) {
        for (int y = first; y < last; ++y)
            std::copy_n(bitmap.constScanLine(y), length, to + y * own.bytesPerLine());
    });
    bitmap = std::move(own);
}

void applyGroup(QImage& bitmap, const RenderGroup& group, const BlurGeometry& geometry) {
    const PixelRegion pixels = geometry.pixelsUnder(group.bounds);
    if (pixels.isEmpty()) return;
    const double length = group.amount * geometry.lengthScale();
    if (group.key.type == BlurType::gaussian && !(length > 0)) return;
    makeOwn(bitmap);
    switch (group.key.type) {
        case BlurType::gaussian:
            gaussianBlur(bitmap, length, pixels);
            break;
        case BlurType::pixelate:
            mosaic(bitmap, {std::max(length, leastCell), QRectF(geometry.extent()).center()},
                   pixels);
            break;
        case BlurType::solid:
            coverWithBlack(bitmap, group.amount, pixels);
            break;
    }
}

}  // namespace

BlurEffectRenderer::BlurEffectRenderer()
    : renderQueue_(QStringLiteral("com.kestrio.blureffectrenderer")) {}

BlurEffectRenderer& BlurEffectRenderer::shared() {
    static BlurEffectRenderer renderer;
    return renderer;
}

Image BlurEffectRenderer::apply(Image image, const std::vector<BlurAnnotation>& annotations,
                                QSizeF canvasSize, QRectF contentRect, std::stop_token stop) {
    if (annotations.empty() || image.isNull()) return image;
    const QSizeF pointSize = image.pointSize();
    const auto geometry = BlurGeometry::of(image.pixelSize(), pointSize, canvasSize, contentRect);
    if (!geometry) return image;
    QImage bitmap = std::move(image).takeBitmap();
    renderQueue_.sync([&] { render(bitmap, renderGroups(annotations), *geometry, stop); });
    return {std::move(bitmap), pointSize};
}

void BlurEffectRenderer::render(QImage& bitmap, const std::vector<RenderGroup>& groups,
                                const BlurGeometry& geometry, const std::stop_token& stop) {
    for (const RenderGroup& group : groups) {
        if (stop.stop_requested()) return;
        try {
            applyGroup(bitmap, group, geometry);
        } catch (const std::bad_alloc&) {
            return;
        }
    }
}

}  // namespace kestrio
