#pragma once

#include "annotation/model/AnyAnnotation.h"
#include "imaging/Image.h"
#include "render/style/CanvasState.h"
#include "render/style/EditorStyleSettings.h"
#include "render/style/WatermarkSettings.h"

namespace kestrio {

/// Everything that makes up an open document, by value, so that any thread can write it.
struct DraftDocument {
    QString name;  ///< heads its window
    Image picture;
    std::optional<Image> original;  ///< the picture before it was enhanced; none where it was not
    EditorStyleSettings style;
    double frameScale = 1;
    CanvasState canvas;
    WatermarkSettings watermark;
    bool isWatermarkEnabled = false;
    std::vector<AnyAnnotation> annotations;  ///< from the lowest to the topmost
    bool areAnnotationsVisible = true;
};

}  // namespace kestrio
