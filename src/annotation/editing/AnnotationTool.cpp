#include "annotation/editing/AnnotationTool.h"

#include "annotation/drawing/BrushStrokeOptimizer.h"
#include "annotation/model/Geometry.h"

namespace kestrio {

namespace {

using Made = std::optional<AnyAnnotation>;

bool isLargerThan(const QRectF& rect, double least) {
    return rect.width() > least && rect.height() > least;
}

Made makeNothing(const DrawingInput&) {
    return std::nullopt;
}

Made makeArrow(const DrawingInput& drawn) {
    return ArrowAnnotation{QUuid::createUuid(),
                           drawn.start,
                           drawn.end,
                           {},
                           drawn.settings.color,
                           strokeWidth(drawn.settings.strokeSize)};
}

Made makeMeasurement(const DrawingInput& drawn) {
    constexpr double leastLength = 5.0;
    if (distance(drawn.start, drawn.end) <= leastLength) return std::nullopt;
    return MeasurementAnnotation{QUuid::createUuid(), drawn.start, drawn.end, drawn.settings.color,
                                 strokeWidth(drawn.settings.strokeSize)};
}

constexpr double leastShapeSize = 5.0;

Made makeRectangle(const DrawingInput& drawn) {
    const QRectF bounds = rectBetween(drawn.start, drawn.end);
    if (!isLargerThan(bounds, leastShapeSize)) return std::nullopt;
    return RectangleAnnotation{QUuid::createUuid(),
                               bounds,
                               drawn.settings.color,
                               strokeWidth(drawn.settings.strokeSize),
                               drawn.settings.fillMode,
                               0,
                               0};
}

Made makeCircle(const DrawingInput& drawn) {
    const QRectF bounds = rectBetween(drawn.start, drawn.end);
    if (!isLargerThan(bounds, leastShapeSize)) return std::nullopt;
    CircleAnnotation circle{
        QUuid::createUuid(),    {}, 0, drawn.settings.color, strokeWidth(drawn.settings.strokeSize),
        drawn.settings.fillMode};
    circle.reshape(bounds);
    return circle;
}

// A click makes a box of the usual size; a drag one that reaches right and down from its start.
Made makeText(const DrawingInput& drawn) {
    constexpr double clickTravel = 10;
    constexpr QSizeF usualSize(150, 40), leastSize(100, 40);
    const QPointF way = drawn.end - drawn.start;
    const QSizeF size = distance(drawn.start, drawn.end) < clickTravel
                            ? usualSize
                            : QSizeF(std::abs(way.x()), std::abs(way.y())).expandedTo(leastSize);
    return newTextAnnotation({drawn.start, size}, drawn.settings);
}

Made makeNumber(const DrawingInput& drawn) {
    return NumberAnnotation{QUuid::createUuid(),
                            drawn.start,
                            drawn.nextNumber,
                            drawn.settings.color,
                            2 * strokeWidth(drawn.settings.strokeSize) + 24,
                            0};
}

BrushAnnotation brushStroke(const DrawingInput& drawn, std::vector<QPointF> points) {
    return {QUuid::createUuid(), std::move(points), drawn.settings.color,
            strokeWidth(drawn.settings.strokeSize), false};
}

BrushAnnotation highlighterStroke(const DrawingInput& drawn, std::vector<QPointF> points) {
    constexpr double opacity = 0.4;
    constexpr double widthFactor = 3;
    BrushAnnotation stroke = brushStroke(drawn, std::move(points));
    stroke.color.alpha = opacity;
    stroke.strokeWidth *= widthFactor;
    stroke.isHighlighter = true;
    return stroke;
}

using StrokeMaker = BrushAnnotation (*)(const DrawingInput& drawn, std::vector<QPointF> points);

Made makeStroke(const DrawingInput& drawn, double tolerance, StrokeMaker make) {
    auto points = BrushStrokeOptimizer::optimize(drawn.points, drawn.timestamps, tolerance);
    if (points.size() > BrushAnnotation::maxPointCount) {
        points.resize(BrushAnnotation::maxPointCount);
    }
    if (points.size() < 2) return std::nullopt;
    return make(drawn, std::move(points));
}

Made makeBrush(const DrawingInput& drawn) {
    return makeStroke(drawn, 1.5, brushStroke);
}

Made makeHighlighter(const DrawingInput& drawn) {
    return makeStroke(drawn, 2.0, highlighterStroke);
}

// Thinning the whole way at every move would cost more than drawing it.
template <StrokeMaker make>
Made previewStroke(const DrawingInput& drawn) {
    return make(drawn, drawn.points);
}

Made makeBlur(const DrawingInput& drawn) {
    constexpr double leastSize = 10.0;
    const QRectF bounds = rectBetween(drawn.start, drawn.end);
    if (!isLargerThan(bounds, leastSize)) return std::nullopt;
    constexpr CodableColor clear{0, 0, 0, 0};
    return BlurAnnotation{QUuid::createUuid(), bounds, 10, clear, 0, BlurType::gaussian, 0.5};
}

constexpr std::array<AnnotationToolInfo, 11> tools = {{
    {.tool = AnnotationTool::select,
     .id = "select",
     .name = Kestrio::marked("Select"),
     .key = 'v',
     .description = Kestrio::marked("Select and move annotations"),
     .tip = Kestrio::marked("Tip: Press V to switch to Select tool"),
     .pointer = Qt::ArrowCursor,
     .make = makeNothing},
    {.tool = AnnotationTool::arrow,
     .id = "arrow",
     .name = Kestrio::marked("Arrow"),
     .key = 'a',
     .description = Kestrio::marked("Draw arrows to point at things"),
     .tip = Kestrio::marked("Tip: Press A to switch to Arrow tool"),
     .make = makeArrow,
     .constraint = DrawingConstraint::angle,
     .sample = ToolSample::stroke},
    {.tool = AnnotationTool::measurement,
     .id = "measurement",
     .name = Kestrio::marked("Measurement"),
     .key = 'm',
     .description = Kestrio::marked("Measure pixel distances"),
     .make = makeMeasurement,
     .constraint = DrawingConstraint::angle,
     .sample = ToolSample::stroke},
    {.tool = AnnotationTool::rectangle,
     .id = "rectangle",
     .name = Kestrio::marked("Rectangle"),
     .key = 'r',
     .description = Kestrio::marked("Draw rectangles and squares"),
     .tip = Kestrio::marked("Tip: Press R to switch to Rectangle tool"),
     .make = makeRectangle,
     .constraint = DrawingConstraint::square,
     .sample = ToolSample::stroke,
     .hasFill = true},
    {.tool = AnnotationTool::circle,
     .id = "circle",
     .name = Kestrio::marked("Circle"),
     .key = 'o',
     .description = Kestrio::marked("Draw circles and ovals"),
     .tip = Kestrio::marked("Tip: Press O to switch to Circle tool"),
     .make = makeCircle,
     .constraint = DrawingConstraint::square,
     .sample = ToolSample::stroke,
     .hasFill = true},
    {.tool = AnnotationTool::text,
     .id = "text",
     .name = Kestrio::marked("Text"),
     .key = 't',
     .description = Kestrio::marked("Add text annotations"),
     .tip = Kestrio::marked("Tip: Press T to switch to Text tool"),
     .pointer = Qt::IBeamCursor,
     .make = makeText},
    {.tool = AnnotationTool::number,
     .id = "number",
     .name = Kestrio::marked("Number"),
     .key = 'n',
     .description = Kestrio::marked("Add numbered markers"),
     .tip = Kestrio::marked("Tip: Press N to switch to Number tool"),
     .make = makeNumber,
     .sample = ToolSample::stamp},
    {.tool = AnnotationTool::brush,
     .id = "brush",
     .name = Kestrio::marked("Brush"),
     .key = 'b',
     .description = Kestrio::marked("Freehand drawing"),
     .tip = Kestrio::marked("Tip: Press B to switch to Brush tool"),
     .make = makeBrush,
     .preview = previewStroke<brushStroke>,
     .sample = ToolSample::stroke,
     .isFreehand = true},
    {.tool = AnnotationTool::highlighter,
     .id = "highlighter",
     .name = Kestrio::marked("Highlighter"),
     .key = 'h',
     .description = Kestrio::marked("Highlight areas with transparency"),
     .tip = Kestrio::marked("Tip: Press H to switch to Highlighter tool"),
     .make = makeHighlighter,
     .preview = previewStroke<highlighterStroke>,
     .sample = ToolSample::stroke,
     .isFreehand = true},
    {.tool = AnnotationTool::blur,
     .id = "blur",
     .name = Kestrio::marked("Blur"),
     .key = 'u',
     .description = Kestrio::marked("Blur sensitive information"),
     .tip = Kestrio::marked("Tip: Press U to switch to Blur tool"),
     .make = makeBlur,
     .constraint = DrawingConstraint::square,
     .isPictureBound = true},
    {.tool = AnnotationTool::eraser,
     .id = "eraser",
     .name = Kestrio::marked("Eraser"),
     .key = 'e',
     .description = Kestrio::marked("Erase annotations"),
     .tip = Kestrio::marked("Tip: Press E to switch to Eraser tool"),
     .make = makeNothing},
}};

static_assert(
    [] {
        for (std::size_t i = 0; i < tools.size(); ++i) {
            if (tools[i].tool != static_cast<AnnotationTool>(i)) return false;
        }
        return true;
    }(),
    "the rows stand in the order of the enumeration");

}  // namespace

const std::array<AnnotationToolInfo, 11>& annotationTools() {
    return tools;
}

const AnnotationToolInfo& annotationToolInfo(AnnotationTool tool) {
    return tools[static_cast<std::size_t>(tool)];
}

std::optional<AnnotationTool> annotationToolOfKey(QChar key) {
    const auto* const found = std::ranges::find(
        tools, key.toLower(),
        [](const AnnotationToolInfo& info) { return QChar::fromLatin1(info.key); });
    return found == tools.end() ? std::nullopt : std::optional(found->tool);
}

QString toolId(AnnotationTool tool) {
    return QString::fromLatin1(annotationToolInfo(tool).id);
}

QString displayName(AnnotationTool tool) {
    return Kestrio::tr(annotationToolInfo(tool).name);
}

TextAnnotation newTextAnnotation(const QRectF& bounds, const ToolSettings& settings) {
    return {QUuid::createUuid(),
            bounds,
            {},
            settings.color,
            16,
            CodableFontWeight::regular,
            std::nullopt,
            CodableTextAlignment::leading,
            0,
            0};
}

}  // namespace kestrio
