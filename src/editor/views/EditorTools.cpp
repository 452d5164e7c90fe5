#include "editor/keyboard/ShortcutInfo.h"
#include "editor/views/EditorController.h"
#include "editor/views/StyleFields.h"
#include "render/style/EffectPreset.h"
#include "render/style/GradientPreset.h"

// What the pickers and the tool palette of the editor show and do.

namespace kestrio {

namespace {

template <typename E>
QString raw(E value) {
    return QString::fromLatin1(enumRow(value).raw);
}

QVariantMap row(const QString& id, const QString& name) {
    return {{QStringLiteral("id"), id}, {QStringLiteral("name"), name}};
}

template <typename E>
QVariantList rowsOf() {
    QVariantList rows;
    for (const auto& each : enumTable(E()))
        rows << row(QString::fromLatin1(each.raw), localised(each.name));
    return rows;
}

template <typename List>
QVariantList rowsOf(const List& list) {
    QVariantList rows;
    for (const auto& each : list)
        rows << row(each.id, localised(each.name.toUtf8().constData()));
    return rows;
}

QVariantMap aspectRow(const AspectRatio& aspect, const QString& label) {
    QVariantMap values = row(aspect.name, label);
    values.insert(QStringLiteral("ratio"), aspect.ratio.value_or(0));
    return values;
}

QVariantList aspectRows() {
    QVariantList rows;
    for (const AspectRatio& aspect : AspectRatio::presets())
        rows << aspectRow(aspect, aspect.name);
    for (const SocialPlatform& platform : SocialPlatform::all())
        for (const AspectRatio& aspect : platform.presets)
            rows << aspectRow(aspect, platform.name + u' ' + aspect.name);
    return rows;
}

// Icons are files of the same name.
QString toolId(AnnotationTool tool) {
    return shortcutId(tool);
}

}  // namespace

QVariantList EditorController::presets() const {
    return rowsOf(PresetTheme::all());
}

QVariantMap EditorController::choices() const {
    return {{QStringLiteral("backdropType"), rowsOf<BackdropType>()},
            {QStringLiteral("gradient"), rowsOf(GradientPreset::all())},
            {QStringLiteral("pattern"), rowsOf<PatternType>()},
            {QStringLiteral("overlay"), rowsOf<OverlayType>()},
            {QStringLiteral("overlayPosition"), rowsOf<OverlayPosition>()},
            {QStringLiteral("effect"), rowsOf(EffectPreset::all())},
            {QStringLiteral("frame"), rowsOf<FrameStyle>()},
            {QStringLiteral("shadowIntensity"), rowsOf<ShadowIntensity>()},
            {QStringLiteral("light"), rowsOf<LightSource>()},
            {QStringLiteral("watermarkPosition"), rowsOf<WatermarkPosition>()},
            {QStringLiteral("strokeSize"), rowsOf<StrokeSize>()},
            {QStringLiteral("aspect"), aspectRows()}};
}

QVariantList EditorController::tools() const {
    QVariantList rows;
    for (const AnnotationToolInfo& info : annotationTools()) {
        QVariantMap values = row(toolId(info.tool), displayName(info.tool));
        values.insert(QStringLiteral("key"), QString(QLatin1Char(info.key)).toUpper());
        values.insert(QStringLiteral("description"), localised(info.description));
        rows << values;
    }
    return rows;
}

QVariantList EditorController::quickColorList() const {
    QVariantList colors;
    for (const CodableColor& color : quickColors)
        colors << color.toQColor();
    return colors;
}

QVariantMap EditorController::tool() const {
    const AnnotationViewModel& annotations = editor_.annotationVM();
    const ToolSettings& settings = annotations.toolSettings();
    QVariantMap values = {
        {QStringLiteral("id"), toolId(annotations.currentTool())},
        {QStringLiteral("color"), settings.color.toQColor()},
        {QStringLiteral("strokeSize"), raw(settings.strokeSize)},
        {QStringLiteral("fillMode"), raw(settings.fillMode)},
        {QStringLiteral("showsFill"), annotations.isFillPickerShown()},
        {QStringLiteral("hasSelection"), annotations.selectedAnnotation().has_value()},
        {QStringLiteral("selectedCount"),
         static_cast<int>(annotations.selectedAnnotations().size())},
        {QStringLiteral("isVisible"), annotations.annotationsVisible()},
    };
    if (const auto blur = annotations.selectedBlur()) {
        values.insert(QStringLiteral("blurType"), raw(blur->blurType));
        values.insert(QStringLiteral("blurIntensity"), blur->intensity);
    }
    return values;
}

void EditorController::setTool(const QString& name) {
    AnnotationViewModel& annotations = editor_.annotationVM();
    for (const AnnotationToolInfo& info : annotationTools()) {
        if (toolId(info.tool) != name || annotations.currentTool() == info.tool) continue;
        annotations.selectAnnotation(std::nullopt);
        annotations.set_currentTool(info.tool);
        return;
    }
}

void EditorController::setToolColor(const QColor& color) {
    editor_.annotationVM().setColor(codableColor(color));
    editor_.synchroniseAnnotations();
}

void EditorController::setStrokeSize(const QString& name) {
    const auto size = fromRawString<StrokeSize>(name.toStdString());
    if (size) editor_.annotationVM().setStrokeSize(*size);
    editor_.synchroniseAnnotations();
}

void EditorController::setFillMode(const QString& name) {
    const auto mode = fromRawString<FillMode>(name.toStdString());
    if (mode) editor_.annotationVM().setFillMode(*mode);
    editor_.synchroniseAnnotations();
}

// A slider changes the record live; one step of undo is made when it is let go.
void EditorController::setBlur(const QString& type, double intensity) {
    AnnotationViewModel& annotations = editor_.annotationVM();
    const auto blur = annotations.selectedBlur();
    if (!blur) return;
    if (!blurBefore_) blurBefore_ = *blur;
    BlurAnnotation changed = *blur;
    changed.blurType = fromRawString<BlurType>(type.toStdString()).value_or(blur->blurType);
    changed.intensity = std::clamp(intensity, 0.0, 1.0);
    annotations.applyAnnotation(changed);
}

void EditorController::commitBlur() {
    AnnotationViewModel& annotations = editor_.annotationVM();
    const auto before = std::exchange(blurBefore_, std::nullopt);
    const auto after = annotations.selectedAnnotation();
    if (!before || !after || before->id() != after->id()) return;
    annotations.applyAnnotation(*before);
    annotations.updateAnnotation(*after);
    editor_.synchroniseAnnotations();
}

void EditorController::deleteSelected() {
    editor_.annotationVM().deleteSelected();
    editor_.synchroniseAnnotations();
}

void EditorController::align(const QString& edge) {
    static const std::pair<const char*, AlignmentType> edges[] = {
        {"left", AlignmentType::left},       {"centerH", AlignmentType::centerH},
        {"right", AlignmentType::right},     {"top", AlignmentType::top},
        {"centerV", AlignmentType::centerV}, {"bottom", AlignmentType::bottom}};
    for (const auto& [name, type] : edges)
        if (edge == QLatin1String(name)) editor_.annotationVM().align(type);
    editor_.synchroniseAnnotations();
}

void EditorController::bringToFront() {
    editor_.annotationVM().bringSelectedToFront();
    editor_.synchroniseAnnotations();
}

void EditorController::sendToBack() {
    editor_.annotationVM().sendSelectedToBack();
    editor_.synchroniseAnnotations();
}

void EditorController::movePicker(const QPointF& point) {
    editor_.colorPickerVM().movePointer(editor_.screenshot(), point);
}

void EditorController::pickColor(const QPointF& point, bool forBackdrop) {
    editor_.colorPickerVM().pick(editor_.screenshot(), point, forBackdrop);
}

bool EditorController::handleKey(int key, int modifiers, const QString& text) {
    const Qt::KeyboardModifiers held(modifiers);
    if (keyboard_.handle({key, held, text, isTextEditing()})) {
        editor_.synchroniseAnnotations();
        return true;
    }
    if (held.testFlag(Qt::ControlModifier) || held.testFlag(Qt::AltModifier)) return false;
    if (key == Qt::Key_Escape && isPickingColor()) {
        togglePicker();
    } else if (key == Qt::Key_I) {
        togglePicker();
    } else if (key == Qt::Key_D) {
        editor_.toggleAnnotationMode();
    } else if (key == Qt::Key_C && !isAnnotationMode()) {
        editor_.enterCropMode();
    } else if (key == Qt::Key_Escape && isAnnotationMode()) {
        editor_.leaveAnnotationMode();
    } else if (text == u"?") {
        setShortcutOverlayVisible(!isShortcutOverlayVisible());
    } else {
        return false;
    }
    return true;
}

QVariantList EditorController::shortcutColumns() const {
    const auto category = [](const auto& heading) {
        QVariantList rows;
        for (const ShortcutInfo& info : ShortcutInfo::all(heading.value)) {
            rows << QVariantMap{{QStringLiteral("shortcut"), shownShortcut(info.shortcut)},
                                {QStringLiteral("description"), info.description}};
        }
        return QVariantMap{{QStringLiteral("name"), localised(heading.name)},
                           {QStringLiteral("rows"), rows}};
    };
    // The tools fill a column of their own.
    QVariantList first, second;
    for (const auto& heading : shortcutCategories)
        (heading.value == ShortcutCategory::tools ? first : second) << category(heading);
    return {QVariant(first), QVariant(second)};
}

QVariantMap EditorController::numberEditing() const {
    const NumberEditingState& state = editor_.annotationVM().numberEditingState();
    return {{QStringLiteral("isEditing"), state.isEditing},
            {QStringLiteral("text"), state.inputValue},
            {QStringLiteral("error"), state.errorMessage.value_or(QString())}};
}

void EditorController::setNumberText(const QString& text) {
    NumberEditingState state = editor_.annotationVM().numberEditingState();
    if (!state.isEditing) return;
    state.inputValue = text;
    editor_.annotationVM().set_numberEditingState(state);
}

void EditorController::commitNumber() {
    editor_.annotationVM().commitNumberEdit();
    editor_.synchroniseAnnotations();
}

}  // namespace kestrio
