#include "annotation/editing/AnnotationTool.h"

#include "annotation/drawing/BrushStrokeOptimizer.h"
#include "annotation/model/Geometry.h"

namespace kestrio {

namespace {

using Made = std::optional<AnyAnnotation>;

bool isLargerThan(const QRectF& rect, double least) {
    return rect.width() > least && rect.height() > least;
}

Made makeNothing(const DrawnGesture&) {
    return std::nullopt;
}

Made makeArrow(const DrawnGesture& drawn) {
    return ArrowAnnotation{QUuid::createUuid(),
                           drawn.start,
                           drawn.end,
                           {},
                           drawn.settings.color,
                           strokeWidth(drawn.settings.strokeSize)};
}

Made makeMeasurement(const DrawnGesture& drawn) {
    constexpr double leastLength = 5.0;
    if (distance(drawn.start, drawn.end) <= leastLength) return std::nullopt;
    return MeasurementAnnotation{QUuid::createUuid(), drawn.start, drawn.end, drawn.settings.color,
                                 strokeWidth(drawn.settings.strokeSize)};
}

constexpr double leastShapeSize = 5.0;

Made makeRectangle(const DrawnGesture& drawn) {
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

Made makeCircle(const DrawnGesture& drawn) {
    const QRectF bounds = rectBetween(drawn.start, drawn.end);
    if (!isLargerThan(bounds, leastShapeSize)) return std::nullopt;
    CircleAnnotation circle{
        QUuid::createUuid(),    {}, 0, drawn.settings.color, strokeWidth(drawn.settings.strokeSize),
        drawn.settings.fillMode};
    circle.reshape(bounds);
    return circle;
}

// The box always reaches right and down from where it was begun.
Made makeText(const DrawnGesture& drawn) {
    const QSizeF size(std::max(std::abs(drawn.end.x() - drawn.start.x()), 100.0),
                      std::max(std::abs(drawn.end.y() - drawn.start.y()), 40.0));
    return newTextAnnotation({drawn.start, size}, drawn.settings);
}

Made makeNumber(const DrawnGesture& drawn) {
    return NumberAnnotation{QUuid::createUuid(),
                            drawn.start,
                            drawn.nextNumber,
                            drawn.settings.color,
                            2 * strokeWidth(drawn.settings.strokeSize) + 24,
                            0};
}

Made makeStroke(const DrawnGesture& drawn, double tolerance) {
    auto points = BrushStrokeOptimizer::optimize(drawn.points, drawn.timestamps, tolerance);
    if (points.size() > BrushAnnotation::maxPointCount) {
        points.resize(BrushAnnotation::maxPointCount);
    }
    if (points.size() < 2) return std::nullopt;
    return BrushAnnotation{QUuid::createUuid(), std::move(points), drawn.settings.color,
                           strokeWidth(drawn.settings.strokeSize), false};
}

Made makeBrush(const DrawnGesture& drawn) {
    return makeStroke(drawn, 1.5);
}

Made makeHighlighter(const DrawnGesture& drawn) {
    constexpr double opacity = 0.4;
    constexpr double widthFactor = 3;
    Made made = makeStroke(drawn, 2.0);
    if (!made) return std::nullopt;
    auto& stroke = *made->as<BrushAnnotation>();
    stroke.color.alpha = opacity;
    stroke.strokeWidth *= widthFactor;
    stroke.isHighlighter = true;
    return made;
}

Made makeBlur(const DrawnGesture& drawn) {
    constexpr double leastSize = 10.0;
    const QRectF bounds = rectBetween(drawn.start, drawn.end);
    if (!isLargerThan(bounds, leastSize)) return std::nullopt;
    constexpr CodableColor clear{0, 0, 0, 0};
    return BlurAnnotation{QUuid::createUuid(), bounds, 10, clear, 0, BlurType::gaussian, 0.5};
}

constexpr std::array<AnnotationToolInfo, 11> tools = {{
    {AnnotationTool::select, Kestrio::marked("Select"), 'v',
     Kestrio::marked("Select and move annotations"), Qt::ArrowCursor, false, makeNothing},
    {AnnotationTool::arrow, Kestrio::marked("Arrow"), 'a',
     Kestrio::marked("Draw arrows to point at things"), Qt::CrossCursor, false, makeArrow},
    {AnnotationTool::measurement, Kestrio::marked("Measurement"), 'm',
     Kestrio::marked("Measure pixel distances"), Qt::CrossCursor, false, makeMeasurement},
    {AnnotationTool::rectangle, Kestrio::marked("Rectangle"), 'r',
     Kestrio::marked("Draw rectangles and squares"), Qt::CrossCursor, false, makeRectangle},
    {AnnotationTool::circle, Kestrio::marked("Circle"), 'o',
     Kestrio::marked("Draw circles and ovals"), Qt::CrossCursor, false, makeCircle},
    {AnnotationTool::text, Kestrio::marked("Text"), 't', Kestrio::marked("Add text annotations"),
     Qt::IBeamCursor, false, makeText},
    {AnnotationTool::number, Kestrio::marked("Number"), 'n',
     Kestrio::marked("Add numbered markers"), Qt::CrossCursor, false, makeNumber},
    {AnnotationTool::brush, Kestrio::marked("Brush"), 'b', Kestrio::marked("Freehand drawing"),
     Qt::CrossCursor, true, makeBrush},
    {AnnotationTool::highlighter, Kestrio::marked("Highlighter"), 'h',
     Kestrio::marked("Highlight areas with transparency"), Qt::CrossCursor, true, makeHighlighter},
    {AnnotationTool::blur, Kestrio::marked("Blur"), 'u',
     Kestrio::marked("Blur sensitive information"), Qt::CrossCursor, false, makeBlur},
    {AnnotationTool::eraser, Kestrio::marked("Eraser"), 'e', Kestrio::marked("Erase annotations"),
     Qt::CrossCursor, false, makeNothing},
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
    const auto found = std::ranges::find(tools, key.toLower(), [](const AnnotationToolInfo& info) {
        return QChar::fromLatin1(info.key);
    });
    return found == tools.end() ? std::nullopt : std::optional(found->tool);
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
