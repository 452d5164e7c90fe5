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

/// What the user draws, in image points.
struct DrawingInput {
    QPointF start;
    QPointF end;
    std::vector<QPointF> points;     ///< of a freehand tool, from its first to its last
    std::vector<double> timestamps;  ///< seconds, of the points
    ToolSettings settings;
    qint64 nextNumber = 1;
};

/// What Shift does to what is drawn.
enum class DrawingConstraint { none, angle, square };

/// What a tool shows beside the pointer of what it would make.
enum class ToolSample { none, stroke, stamp };

/// Everything in which one tool differs from another.
struct AnnotationToolInfo {
    using Made = std::optional<AnyAnnotation>;

    AnnotationTool tool;
    const char* id;             ///< names it in stored settings, shortcuts and icons
    const char* name;           ///< English
    char key;                   ///< lower case; chooses the tool while annotating
    const char* description;    ///< English, what it is for in a few words
    const char* tip = nullptr;  ///< English, about its key; shown once
    Qt::CursorShape pointer = Qt::CrossCursor;
    /// The record that what was drawn makes, or none where it is refused.
    Made (*make)(const DrawingInput& input) = nullptr;
    /// What is shown while drawing goes on, where `make` would take too long for that.
    Made (*preview)(const DrawingInput& input) = nullptr;
    DrawingConstraint constraint = DrawingConstraint::none;
    ToolSample sample = ToolSample::none;
    bool isFreehand = false;      ///< every point of the way counts
    bool isPictureBound = false;  ///< draws on the picture and not beside it
    bool hasFill = false;         ///< what it makes may be filled
};

/// All tools in display order.
const std::array<AnnotationToolInfo, 11>& annotationTools();
const AnnotationToolInfo& annotationToolInfo(AnnotationTool tool);
/// The tool that a key chooses, whatever its case, or none.
std::optional<AnnotationTool> annotationToolOfKey(QChar key);
/// Names the tool in stored settings, shortcuts and icons.
QString toolId(AnnotationTool tool);
/// In the user's language.
QString displayName(AnnotationTool tool);

/// An empty text box with the settings' colour.
TextAnnotation newTextAnnotation(const QRectF& bounds, const ToolSettings& settings);

}  // namespace kestrio
