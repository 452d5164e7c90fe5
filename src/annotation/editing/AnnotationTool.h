#pragma once

#include "annotation/editing/ToolSettings.h"
#include "annotation/model/AnyAnnotation.h"

namespace kestrio {

enum class AnnotationTool {
    select,
    arrow,
    measurement,
    rectangle,
    circle,
    text,
    number,
    brush,
    highlighter,
    blur,
    eraser
};

/// What the user drew, in image points.
struct DrawnGesture {
    QPointF start;
    QPointF end;
    std::vector<QPointF> points;     ///< of a freehand tool, from its first to its last
    std::vector<double> timestamps;  ///< seconds, of the points
    ToolSettings settings;
    qint64 nextNumber = 1;
};

/// Everything in which one tool differs from another.
struct AnnotationToolInfo {
    AnnotationTool tool;
    const char* name;         ///< English
    char key;                 ///< lower case; chooses the tool while annotating
    const char* description;  ///< English, what it is for in a few words
    Qt::CursorShape pointer;
    bool isFreehand;  ///< every point of the way counts
    /// The record that a finished gesture makes, or none where it is refused.
    std::optional<AnyAnnotation> (*make)(const DrawnGesture& gesture);
};

/// All tools in display order.
const std::array<AnnotationToolInfo, 11>& annotationTools();
const AnnotationToolInfo& annotationToolInfo(AnnotationTool tool);
/// The tool that a key chooses, whatever its case, or none.
std::optional<AnnotationTool> annotationToolOfKey(QChar key);
/// In the user's language.
QString displayName(AnnotationTool tool);

/// An empty text box with the settings' colour.
TextAnnotation newTextAnnotation(const QRectF& bounds, const ToolSettings& settings);

}  // namespace kestrio
