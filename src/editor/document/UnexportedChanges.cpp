#include "editor/document/UnexportedChanges.h"

namespace kestrio {

namespace {

/// What of the canvas shows in the finished picture.
CanvasState finishedCanvas(CanvasState canvas) {
    canvas.transform.scale = 1;
    canvas.transform.offset = {0, 0};
    canvas.cropRect = std::nullopt;
    canvas.isCropping = false;
    return canvas;
}

bool isSameStyle(const CompositeRequest& a, const CompositeRequest& b) {
    return a.backdrop == b.backdrop && a.mockup == b.mockup && a.frameStyle == b.frameStyle &&
           a.frameScale == b.frameScale && a.watermark == b.watermark &&
           finishedCanvas(a.canvasState) == finishedCanvas(b.canvasState);
}

}  // namespace

void UnexportedChanges::settle(const CompositeRequest& picture) {
    settledBitmap_ = picture.screenshot.bitmap().cacheKey();
    settled_ = picture;
    settled_->screenshot = {};
}

bool UnexportedChanges::wouldLose(const CompositeRequest& picture) const {
    if (!settled_) return false;
    return picture.screenshot.bitmap().cacheKey() != settledBitmap_ ||
           !isSameStyle(picture, *settled_) ||
           !areIdentical(picture.annotations, settled_->annotations);
}

}  // namespace kestrio
