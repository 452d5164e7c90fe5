#pragma once

#include "render/style/AspectRatio.h"

namespace kestrio {

/// Where the picture stands in the editor's canvas.
struct ImageTransform {
    QSizeF offset = {0, 0};  ///< points
    double scale = 1;        ///< 1 is fit
    double rotation = 0;     ///< degrees, clockwise, 0 to below 360

    bool operator==(const ImageTransform&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("offset", &ImageTransform::offset),
                          jsonField("scale", &ImageTransform::scale),
                          jsonField("rotation", &ImageTransform::rotation));
    }
};

/// The canvas of a document.
struct CanvasState {
    ImageTransform transform;
    AspectRatio aspectRatio;
    QSizeF canvasSize = {0, 0};      ///< the logical canvas, points
    std::optional<QRectF> cropRect;  ///< points of the image, top-left origin
    bool isCropping = false;

    bool operator==(const CanvasState&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("transform", &CanvasState::transform),
                          jsonField("aspectRatio", &CanvasState::aspectRatio),
                          jsonField("canvasSize", &CanvasState::canvasSize),
                          jsonField("cropRect", &CanvasState::cropRect),
                          jsonField("isCropping", &CanvasState::isCropping));
    }
};

}  // namespace kestrio
