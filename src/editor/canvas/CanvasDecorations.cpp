#include "editor/canvas/CanvasDecorations.h"

#include "annotation/model/AnnotationKind.h"
#include "annotation/model/Geometry.h"
#include "annotation/painting/AnnotationPainter.h"
#include "annotation/painting/ArrowShape.h"
#include "annotation/painting/Caption.h"
#include "ui/Palette.h"

#include <QPainterPath>

namespace kestrio {

namespace {

const QColor& accent = Palette::light().accent;
const QColor& guideColor = Palette::light().guide;
constexpr double handleDiameter = 10;
constexpr double farAway = 1e5;  // beyond every view, in points

QPen hairline(const QColor& color, Qt::PenStyle style = Qt::SolidLine) {
    QPen pen(color, 1.2, style);
    pen.setCosmetic(true);
    return pen;
}

/// Two-coloured, so that it shows on every ground.
void strokeOutline(QPainter& painter, const QPainterPath& outline) {
    painter.strokePath(outline, QPen(QColor(255, 255, 255, 200), 3));
    painter.strokePath(outline, hairline(accent));
}

/// Around what is painted of a record, so that the frame does not hide a thin one.
QPainterPath outlineOf(const AnyAnnotation& annotation, const CanvasInteraction& interaction) {
    constexpr double gap = 3;  // points of the view
    const double margin =
        std::abs(annotation.strokeWidth()) / 2 + gap / interaction.viewport().imageScale();
    const QRectF bounds = grown(annotation.bounds().normalized(), margin);
    const QTransform turn = QTransform()
                                .translate(bounds.center().x(), bounds.center().y())
                                .rotate(rotationOf(annotation))
                                .translate(-bounds.center().x(), -bounds.center().y());
    QPolygonF outline;
    for (const QPointF& corner : {bounds.topLeft(), bounds.topRight(), bounds.bottomRight(),
                                  bounds.bottomLeft(), bounds.topLeft()}) {
        outline << interaction.viewport().toView(turn.map(corner));
    }
    QPainterPath path;
    path.addPolygon(outline);
    return path;
}

void paintGuides(QPainter& painter, const AnnotationViewModel& annotations,
                 const CanvasInteraction& interaction) {
    painter.setPen(hairline(guideColor));
    for (const AlignmentGuide& guide : annotations.activeAlignmentGuides()) {
        const bool isHorizontal = guide.orientation == GuideOrientation::horizontal;
        const QPointF from =
            isHorizontal ? QPointF(-farAway, guide.position) : QPointF(guide.position, -farAway);
        const QPointF to =
            isHorizontal ? QPointF(farAway, guide.position) : QPointF(guide.position, farAway);
        painter.drawLine(interaction.viewport().toView(from), interaction.viewport().toView(to));
    }
}

constexpr double haloWidth = 2;  // points around an arrow

/// Around a selected arrow in its own colour, paler: a frame says little about a line.
void paintHalo(QPainter& painter, const ArrowAnnotation& arrow, const CanvasViewport& viewport) {
    const double scale = viewport.imageScale();
    const ArrowGeometry geometry{viewport.toView(arrow.startPoint), viewport.toView(arrow.endPoint),
                                 std::max(arrow.strokeWidth, 0.0) * scale};
    QColor color = arrow.color.toQColor();
    color.setAlphaF(color.alphaF() * 0.5f);
    painter.strokePath(
        arrowOutline(geometry, geometry.headSize(scale)),
        QPen(color, 2 * haloWidth * scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

/// How far the halo of a record reaches beyond its bounds, in image points.
double haloReach(const ArrowAnnotation& arrow) {
    const ArrowGeometry geometry{arrow.startPoint, arrow.endPoint, arrow.strokeWidth};
    return geometry.headSize() + haloWidth;
}

template <typename Record>
double haloReach(const Record&) {
    return 0;
}

/// Other lines show where they are by their handles.
template <typename Record>
void paintHalo(QPainter&, const Record&, const CanvasViewport&) {}

void paintHandles(QPainter& painter, const CanvasInteraction& interaction) {
    const auto handles = interaction.viewHandles();
    for (const SelectionHandle& handle : handles) {
        painter.setPen(QPen(accent, 1.5));
        painter.setBrush(handle.role == HandleRole::rotation ? QBrush(accent) : Qt::white);
        painter.drawEllipse(handle.position, handleDiameter / 2, handleDiameter / 2);
    }
}

void paintSelection(QPainter& painter, const AnnotationViewModel& annotations,
                    const CanvasInteraction& interaction) {
    for (const AnyAnnotation& annotation : annotations.annotations()) {
        if (!annotations.selectedAnnotations().contains(annotation.id())) continue;
        const bool isAlone = annotations.selectedAnnotations().size() == 1;
        if (kindOf(annotation).handles == HandleSet::ends && isAlone) {
            annotation.visit(
                [&](const auto& record) { paintHalo(painter, record, interaction.viewport()); });
        } else {
            strokeOutline(painter, outlineOf(annotation, interaction));
        }
    }
    const auto combined = annotations.combinedBounds();
    if (combined && annotations.selectedAnnotations().size() > 1) {
        QPolygonF outline;
        for (const QPointF& corner : {combined->topLeft(), combined->topRight(),
                                      combined->bottomRight(), combined->bottomLeft()}) {
            outline << interaction.viewport().toView(corner);
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(hairline(accent, Qt::DashLine));
        painter.drawPolygon(outline);
    }
    paintHandles(painter, interaction);
}

void paintRubberBand(QPainter& painter, const AnnotationViewModel& annotations,
                     const CanvasInteraction& interaction) {
    const auto band = annotations.selectionRect();
    if (!band) return;
    painter.setPen(hairline(accent));
    painter.setBrush(QColor(accent.red(), accent.green(), accent.blue(), 36));
    painter.drawRect(QRectF(interaction.viewport().toView(band->topLeft()),
                            interaction.viewport().toView(band->bottomRight())));
}

void paintDimensions(QPainter& painter, const DimensionLabel& label) {
    constexpr double fontSize = 12, margin = 8;
    const QSizeF text = captionSize(label.text, fontSize);
    QRectF pill(QPointF(), QSizeF(text.width() + 2 * margin, fontSize * 1.8));
    pill.moveCenter(label.position);
    painter.setPen(Qt::NoPen);
    painter.setBrush(label.isSnapped ? guideColor : Palette::light().overlayLabel);
    painter.drawRoundedRect(pill, pill.height() / 2, pill.height() / 2);
    paintCaption(painter, label.text, label.position, fontSize, Qt::white);
}

void paintEraser(QPainter& painter, const QPointF& center, double radius) {
    painter.setBrush(QColor(255, 255, 255, 40));
    painter.setPen(QPen(QColor(255, 255, 255, 220), 3));
    painter.drawEllipse(center, radius, radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 160), 1.2));
    painter.drawEllipse(center, radius, radius);
}

/// A small sample beside the pointer, so as not to hide what lies beneath it.
void paintToolSample(QPainter& painter, const AnnotationViewModel& annotations,
                     const QPointF& pointer) {
    const QPointF from = pointer + QPointF(16, 30), to = pointer + QPointF(44, 14);
    const AnnotationToolInfo& tool = annotationToolInfo(annotations.currentTool());
    if (tool.sample == ToolSample::none) return;
    DrawingInput input{from, to, {}, {}, annotations.toolSettings(), annotations.nextNumber()};
    for (int i = 0; i <= 12; ++i) {
        const double t = i / 12.0;
        input.points.push_back(from + t * (to - from) + QPointF(0, 6 * std::sin(t * 6.28)));
    }
    const auto sample = tool.make(input);
    if (!sample) return;
    painter.setOpacity(0.55);
    painter.save();
    AnnotationMapping mapping;
    // A badge stands where it is put; beside the pointer it would hide the place.
    if (tool.sample == ToolSample::stamp) mapping.origin = QPointF(6, 6);
    paintAnnotation(painter, *sample, mapping);
    painter.restore();
    painter.setOpacity(1);
}

}  // namespace

void paintTransparencyGrid(QPainter& painter, const QRectF& rect) {
    constexpr int cell = 10;
    static const QImage tile = [] {
        QImage image(2 * cell, 2 * cell, QImage::Format_RGB32);
        image.fill(QColor(255, 255, 255));
        QPainter tilePainter(&image);
        tilePainter.fillRect(0, 0, cell, cell, QColor(236, 236, 240));
        tilePainter.fillRect(cell, cell, cell, cell, QColor(236, 236, 240));
        return image;
    }();
    painter.save();
    painter.setBrushOrigin(rect.topLeft());
    painter.fillRect(rect, QBrush(tile));
    painter.restore();
}

void paintDecorations(QPainter& painter, const EditorViewModel& editor,
                      const CanvasInteraction& interaction) {
    if (!editor.isAnnotationMode()) return;
    const AnnotationViewModel& annotations = editor.annotationVM();
    painter.setRenderHint(QPainter::Antialiasing);
    paintGuides(painter, annotations, interaction);
    if (annotations.annotationsVisible()) paintSelection(painter, annotations, interaction);
    paintRubberBand(painter, annotations, interaction);
    if (const auto label = interaction.dimensionLabel()) paintDimensions(painter, *label);
    const auto& cursor = annotations.cursorPosition();
    if (!cursor) return;
    const QPointF pointer = interaction.viewport().toView(*cursor);
    if (annotations.currentTool() == AnnotationTool::eraser) {
        paintEraser(painter, pointer, interaction.eraserRadius());
    } else if (annotations.isToolCursorPreviewShown()) {
        paintToolSample(painter, annotations, pointer);
    }
}

QRectF decorationBounds(const EditorViewModel& editor, const CanvasInteraction& interaction) {
    if (!editor.isAnnotationMode()) return {};
    const AnnotationViewModel& annotations = editor.annotationVM();
    if (!annotations.activeAlignmentGuides().empty()) {
        return {-farAway, -farAway, 2 * farAway, 2 * farAway};
    }
    QRectF bounds;
    const auto include = [&bounds](const QRectF& rect, double margin) {
        bounds |= rect.adjusted(-margin, -margin, margin, margin);
    };
    constexpr double pen = 4;
    // An arrow's head is broader than its line, and its halo than that.
    const auto reachOf = [&](const AnyAnnotation& annotation) {
        const double halo = annotation.visit([](const auto& record) { return haloReach(record); });
        return pen + halo * interaction.viewport().imageScale();
    };
    if (!annotations.selectedAnnotations().empty()) {
        for (const AnyAnnotation& annotation : annotations.annotations())
            if (annotations.selectedAnnotations().contains(annotation.id()))
                include(outlineOf(annotation, interaction).boundingRect(), reachOf(annotation));
        for (const SelectionHandle& handle : interaction.viewHandles())
            include(QRectF(handle.position, QSizeF(0, 0)), handleDiameter / 2 + pen);
    }
    if (const auto band = annotations.selectionRect()) {
        include(QRectF(interaction.viewport().toView(band->topLeft()),
                       interaction.viewport().toView(band->bottomRight()))
                    .normalized(),
                pen);
    }
    if (const auto label = interaction.dimensionLabel()) {
        constexpr double halfLabel = 100;
        include(QRectF(label->position, QSizeF(0, 0)), halfLabel);
    }
    if (const auto& cursor = annotations.cursorPosition()) {
        constexpr double sampleReach = 120;
        const QRectF pointer(interaction.viewport().toView(*cursor), QSizeF(0, 0));
        if (annotations.currentTool() == AnnotationTool::eraser) {
            include(pointer, interaction.eraserRadius() + pen);
        } else if (annotations.isToolCursorPreviewShown()) {
            include(pointer, sampleReach);
        }
    }
    return bounds;
}

}  // namespace kestrio
