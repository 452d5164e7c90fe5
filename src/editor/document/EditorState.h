#pragma once

#include "annotation/model/AnyAnnotation.h"
#include "imaging/Image.h"
#include "render/style/CanvasState.h"
#include "render/style/EditorStyleSettings.h"

namespace kestrio {

/// A canvas as the document keeps it: zoom and pan are the view's.
inline CanvasState atRest(CanvasState canvas) {
    const ImageTransform unmoved;
    canvas.transform.offset = unmoved.offset;
    canvas.transform.scale = unmoved.scale;
    return canvas;
}

/// The values that one step of the editor's undo restores. Zoom and pan are the view's and no part
/// of the document: the canvas holds their defaults here.
struct EditorState {
    std::vector<AnyAnnotation> annotations;
    CanvasState canvasState;
    BackdropSettings backdrop;
    MockupSettings mockup;
    FrameStyle frameStyle = FrameStyle::none;
    double frameScale = 1;

    bool operator==(const EditorState&) const = default;
};

/// A state with the picture that it belongs to: bitmaps are shared, so keeping one costs nothing
/// until a crop or an enhancement replaces it, and undo brings it back.
struct EditorSnapshot {
    EditorState state;
    Image screenshot;
    /// What the screenshot was before it was enhanced; none where it was not.
    std::optional<Image> original;

    bool operator==(const EditorSnapshot& other) const {
        return state == other.state &&
               screenshot.bitmap().cacheKey() == other.screenshot.bitmap().cacheKey();
    }
};

}  // namespace kestrio
