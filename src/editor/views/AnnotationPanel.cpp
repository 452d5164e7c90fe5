#include "editor/views/AnnotationPanel.h"

#include "annotation/editing/Alignment.h"
#include "editor/views/StyleFields.h"
#include "editor/views/ViewRows.h"

namespace kestrio {

namespace {

QVariantMap alignmentRow(const QString& id, const char* name, const QString& symbol, int least) {
    QVariantMap values = viewRow(id, Kestrio::tr(name));
    values.insert(QStringLiteral("symbol"), symbol);
    values.insert(QStringLiteral("least"), least);
    return values;
}

}  // namespace

AnnotationPanel::AnnotationPanel(EditorViewModel& editor, ShortcutHintManager& hints,
                                 QObject* parent)
    : QObject(parent), editor_(editor), hints_(hints) {
    using Annotations = AnnotationViewModel;
    for (const auto signal :
         {&Annotations::currentToolChanged, &Annotations::toolSettingsChanged,
          &Annotations::selectedAnnotationChanged, &Annotations::selectedAnnotationsChanged,
          &Annotations::annotationsVisibleChanged}) {
        connect(&annotations(), signal, this, &AnnotationPanel::toolChanged);
    }
    connect(&annotations().textEditing(), &TextEditing::editedTextIdChanged, this,
            &AnnotationPanel::toolChanged);
    connect(&editor.annotationSession(), &AnnotationSession::annotationsChanged, this,
            &AnnotationPanel::toolChanged);
    connect(&annotations().numberEditing(), &NumberEditing::numberEditingStateChanged, this,
            &AnnotationPanel::numberEditingChanged);
}

AnnotationState AnnotationPanel::tool() const {
    const ToolSettings& settings = annotations().toolSettings();
    AnnotationState state;
    state.id = toolId(annotations().currentTool());
    state.color = settings.color.toQColor();
    state.strokeSize = rawName(settings.strokeSize);
    state.fillMode = rawName(settings.fillMode);
    state.showsFill = annotations().isFillPickerShown();
    state.hasSelection = annotations().selectedAnnotation().has_value();
    state.isNumberSelected = selectedNumber() != nullptr;
    state.selectedCount = static_cast<int>(annotations().selectedAnnotations().size());
    state.isVisible = annotations().annotationsVisible();
    state.areMarksHidden = !state.isVisible && !editor_.liveAnnotations().empty();
    if (const auto blur = annotations().selectedBlur()) {
        state.hasBlur = true;
        state.blurType = rawName(blur->blurType);
        state.blurIntensity = blur->intensity;
    }
    return state;
}

QVariantList AnnotationPanel::tools() const {
    QVariantList rows;
    for (const AnnotationToolInfo& info : annotationTools()) {
        QVariantMap values = viewRow(toolId(info.tool), displayName(info.tool));
        values.insert(QStringLiteral("key"), QString(QLatin1Char(info.key)).toUpper());
        values.insert(QStringLiteral("description"), Kestrio::tr(info.description));
        rows << values;
    }
    return rows;
}

QVariantList AnnotationPanel::quickColorList() const {
    QVariantList colors;
    for (const CodableColor& color : quickColors)
        colors << color.toQColor();
    return colors;
}

QVariantList AnnotationPanel::strokeSizes() const {
    return viewRows<StrokeSize>();
}

QVariantList AnnotationPanel::fillModes() const {
    return viewRows<FillMode>();
}

QVariantList AnnotationPanel::blurTypes() const {
    return viewRows<BlurType>();
}

QVariantList AnnotationPanel::alignments() const {
    static constexpr const char* names[] = {
        Kestrio::marked("Align left edges"),  Kestrio::marked("Centre horizontally"),
        Kestrio::marked("Align right edges"), Kestrio::marked("Align top edges"),
        Kestrio::marked("Centre vertically"), Kestrio::marked("Align bottom edges")};
    QVariantList rows;
    for (std::size_t i = 0; i < alignmentTypes.size(); ++i) {
        rows << alignmentRow(QString::fromLatin1(alignmentTypes[i].raw), names[i],
                             QString::fromLatin1(alignmentTypes[i].name), 2);
    }
    for (const auto& axis : distributionAxes) {
        const QString id = QString::fromLatin1(axis.raw);
        rows << alignmentRow(id, axis.name, QStringLiteral("distribute.") + id, 3);
    }
    return rows;
}

NumberEditorState AnnotationPanel::numberEditing() const {
    const NumberEditingState& state = annotations().numberEditing().numberEditingState();
    return {state.isEditing, state.inputValue, state.errorMessage.value_or(QString())};
}

const NumberAnnotation* AnnotationPanel::selectedNumber() const {
    const auto& selected = annotations().selectedAnnotation();
    return selected ? selected->as<NumberAnnotation>() : nullptr;
}

void AnnotationPanel::hint(const QString& action) {
    if (const auto tip = hints_.takeHint(action)) editor_.set_toastMessage(*tip);
}

void AnnotationPanel::setTool(const QString& id) {
    for (const AnnotationToolInfo& info : annotationTools()) {
        if (toolId(info.tool) != id || annotations().currentTool() == info.tool) continue;
        editor_.finishEditing();
        annotations().selectAnnotation(std::nullopt);
        annotations().set_currentTool(info.tool);
        hint(id);
        return;
    }
}

void AnnotationPanel::setColor(const QColor& color) {
    annotations().setColor(codableColor(color));
    editor_.synchroniseAnnotations();
}

void AnnotationPanel::setStrokeSize(const QString& id) {
    if (const auto size = namedValue<StrokeSize>(id)) annotations().setStrokeSize(*size);
    editor_.synchroniseAnnotations();
}

void AnnotationPanel::setFillMode(const QString& id) {
    if (const auto mode = namedValue<FillMode>(id)) annotations().setFillMode(*mode);
    editor_.synchroniseAnnotations();
}

// A slider changes the record live; one step of undo is made when it is let go.
void AnnotationPanel::setBlur(const QString& type, double intensity) {
    const auto blur = annotations().selectedBlur();
    if (!blur) return;
    if (blurEdit_ && blurEdit_->id() != blur->id) commitBlur();
    if (!blurEdit_) blurEdit_.emplace(annotations(), blur->id);
    BlurAnnotation changed = *blur;
    changed.blurType = namedValue<BlurType>(type).value_or(blur->blurType);
    changed.intensity = std::clamp(intensity, 0.0, 1.0);
    blurEdit_->apply(changed);
}

void AnnotationPanel::commitBlur() {
    if (!blurEdit_) return;
    blurEdit_->commit();
    blurEdit_.reset();
    editor_.synchroniseAnnotations();
}

void AnnotationPanel::align(const QString& id) {
    if (const auto edge = namedValue<AlignmentType>(id)) {
        annotations().align(*edge);
    } else if (const auto axis = namedValue<DistributionAxis>(id)) {
        annotations().distribute(*axis);
    }
    editor_.synchroniseAnnotations();
}

void AnnotationPanel::renumberFromHere() {
    const NumberAnnotation* number = selectedNumber();
    if (!number) return;
    annotations().renumber(number->id, number->number);
    editor_.synchroniseAnnotations();
}

void AnnotationPanel::deleteAndRenumber() {
    const NumberAnnotation* number = selectedNumber();
    if (!number) return;
    const QUuid id = number->id;  // the record goes with the selection
    annotations().deleteAnnotation(id);
    annotations().renumber(std::nullopt, 1);
    editor_.synchroniseAnnotations();
}

void AnnotationPanel::setNumberText(const QString& text) {
    annotations().numberEditing().setInput(text);
}

void AnnotationPanel::toggleVisibility() {
    annotations().toggleVisibility();
    editor_.synchroniseAnnotations();
}

void AnnotationPanel::finishEditing() {
    editor_.finishEditing();
}

void AnnotationPanel::commitNumber() {
    annotations().numberEditing().commit();
    editor_.synchroniseAnnotations();
}

}  // namespace kestrio
