#pragma once

#include "library/drafts/DraftDocument.h"

namespace kestrio {

/// What document.json says about a picture that lies beside it.
struct DraftPictureRecord {
    QString file;  ///< its name in the draft's folder
    QSizeF pointSize;
    /// Files without a transparent pixel do not say whether their picture may have some.
    bool isOpaque = true;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("file", &DraftPictureRecord::file),
                          jsonField("pointSize", &DraftPictureRecord::pointSize),
                          jsonField("isOpaque", &DraftPictureRecord::isOpaque));
    }
};

/// The document.json of a draft.
struct DraftRecord {
    QString name;
    Date changed;
    DraftPictureRecord picture;
    std::optional<DraftPictureRecord> original;
    EditorStyleSettings style;
    double frameScale = 1;
    CanvasState canvas;
    WatermarkSettings watermark;
    bool isWatermarkEnabled = false;
    std::vector<AnyAnnotation> annotations;
    bool areAnnotationsVisible = true;

    static constexpr auto jsonFields() {
        return std::tuple(
            jsonField("name", &DraftRecord::name), jsonField("changed", &DraftRecord::changed),
            jsonField("picture", &DraftRecord::picture),
            jsonField("original", &DraftRecord::original), jsonField("style", &DraftRecord::style),
            jsonField("frameScale", &DraftRecord::frameScale),
            jsonField("canvas", &DraftRecord::canvas),
            jsonField("watermark", &DraftRecord::watermark),
            jsonField("isWatermarkEnabled", &DraftRecord::isWatermarkEnabled),
            jsonField("annotations", &DraftRecord::annotations),
            jsonField("areAnnotationsVisible", &DraftRecord::areAnnotationsVisible));
    }
};

}  // namespace kestrio
