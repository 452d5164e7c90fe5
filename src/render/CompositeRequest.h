#pragma once

#include "annotation/model/AnyAnnotation.h"
#include "imaging/Image.h"
#include "imaging/codecs/DecodedPictures.h"
#include "render/CompositeLayout.h"
#include "render/style/CanvasState.h"
#include "render/style/EditorStyleSettings.h"
#include "render/style/WatermarkSettings.h"

namespace kestrio {

/// All that one composition needs, by value, so that it can be composed on any thread while its
/// maker goes on.
struct CompositeRequest {
    Image screenshot;
    BackdropSettings backdrop;
    MockupSettings mockup;
    FrameStyle frameStyle = FrameStyle::none;
    double frameScale = frameScaleRange.standard;
    CanvasState canvasState;
    /// Output pixels a point of the canvas, above 0; the screenshot's own density unless given. A
    /// canvas on the screen shows the picture smaller than it is exported, patterns and all.
    std::optional<double> outputScale;
    /// Of a picture as backdrop: thumbnails are drawn from a small copy.
    PictureDetail backdropDetail = PictureDetail::whole;
    std::optional<WatermarkSettings> watermark;
    /// From the lowest to the topmost, in points of the screenshot.
    std::vector<AnyAnnotation> annotations;

    /// Replaces backdrop, mockup and frame.
    void setStyle(const EditorStyleSettings& style) {
        backdrop = style.backdrop;
        mockup = style.mockup;
        frameStyle = style.frameStyle;
    }
};

/// The geometry of a request for a screenshot of a given density (pixels a point).
CompositeLayout compositeLayout(const CompositeRequest& request, double pixelDensity);

}  // namespace kestrio
