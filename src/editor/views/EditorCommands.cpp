#include "editor/keyboard/ShortcutInfo.h"
#include "editor/views/EditorController.h"
#include "editor/views/ViewRows.h"
#include "render/style/EffectPreset.h"
#include "render/style/GradientPreset.h"

// What the editor's pickers offer, and what its keys and sections do.

namespace kestrio {

namespace {

QVariantMap aspectRow(const AspectRatio& aspect) {
    QVariantMap values = viewRow(aspect.name, aspect.name);
    values.insert(QStringLiteral("ratio"), aspect.ratio.value_or(0));
    return values;
}

QVariantList aspectRows(const std::vector<AspectRatio>& list) {
    QVariantList rows;
    for (const AspectRatio& aspect : list)
        rows << aspectRow(aspect);
    return rows;
}

QVariantList socialRows() {
    QVariantList rows;
    for (const SocialPlatform& platform : SocialPlatform::all()) {
        QVariantMap values = viewRow(platform.name.toLower(), platform.name);
        values.insert(QStringLiteral("rows"), aspectRows(platform.presets));
        rows << values;
    }
    return rows;
}

QVariantList gradientRows() {
    QVariantList rows;
    for (const GradientGroup& group : GradientGroup::all()) {
        QVariantMap values = viewRow(group.id, Kestrio::tr(group.name.toUtf8().constData()));
        values.insert(QStringLiteral("rows"), viewRows(group.presets));
        rows << values;
    }
    return rows;
}

}  // namespace

QVariantMap EditorController::choices() const {
    return {{QStringLiteral("backdropType"), viewRows<BackdropType>()},
            {QStringLiteral("gradientGroups"), gradientRows()},
            {QStringLiteral("imageFit"), viewRows<ImageScaleFit>()},
            {QStringLiteral("pattern"), viewRows<PatternType>()},
            {QStringLiteral("overlay"), viewRows<OverlayType>()},
            {QStringLiteral("overlayPosition"), viewRows<OverlayPosition>()},
            {QStringLiteral("effect"), viewRows(EffectPreset::all())},
            {QStringLiteral("frame"), viewRows<FrameStyle>()},
            {QStringLiteral("shadowIntensity"), viewRows<ShadowIntensity>()},
            {QStringLiteral("light"), viewRows<LightSource>()},
            {QStringLiteral("aspect"), aspectRows(AspectRatio::presets())},
            {QStringLiteral("social"), socialRows()}};
}

QString EditorController::openPanel() const {
    const auto& panel = editor_.expandedPanel();
    return panel ? rawName(*panel) : QString();
}

void EditorController::togglePanel(const QString& section) {
    const auto named = namedValue<RightPanelSection>(section);
    editor_.set_expandedPanel(named == editor_.expandedPanel() ? std::nullopt : named);
}

void EditorController::hint(const QString& action) {
    if (const auto tip = hints_.takeHint(action)) editor_.set_toastMessage(*tip);
}

void EditorController::undoByButton() {
    editor_.undo();
    hint(QStringLiteral("undo"));
}

void EditorController::redoByButton() {
    editor_.redo();
    hint(QStringLiteral("redo"));
}

void EditorController::undoByKey() {
    editor_.undo();
    hints_.recordShortcutUsed(QStringLiteral("undo"));
}

void EditorController::redoByKey() {
    editor_.redo();
    hints_.recordShortcutUsed(QStringLiteral("redo"));
}

void EditorController::pickColorByButton(bool forBackdrop) {
    const bool begins = !colors_.isPicking();
    colors_.toggle(forBackdrop);
    if (begins) hint(QStringLiteral("eyedropper"));
}

bool EditorController::handleKey(int key, int modifiers, const QString& text, bool isTextFocused) {
    const Qt::KeyboardModifiers held(modifiers);
    if (isTextFocused || annotation_.isTextEditing()) return false;
    if (keyboard_.handle({key, held, text, false})) {
        editor_.synchroniseAnnotations();
        return true;
    }
    if (held & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
    if (key == Qt::Key_Escape && colors_.isPicking()) {
        colors_.toggle();
    } else if (key == Qt::Key_Escape && isShortcutOverlayVisible()) {
        setShortcutOverlayVisible(false);
    } else if (key == Qt::Key_Escape && isAnnotationMode()) {
        editor_.leaveAnnotationMode();
    } else if (key == Qt::Key_I) {
        colors_.toggle();
        hints_.recordShortcutUsed(QStringLiteral("eyedropper"));
    } else if (key == Qt::Key_D) {
        editor_.toggleAnnotationMode();
    } else if (key == Qt::Key_C && !isAnnotationMode()) {
        editor_.enterCropMode();
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
        return QVariantMap{{QStringLiteral("name"), Kestrio::tr(heading.name)},
                           {QStringLiteral("rows"), rows}};
    };
    // The tools fill a column of their own.
    QVariantList first, second;
    for (const auto& heading : shortcutCategories)
        (heading.value == ShortcutCategory::tools ? first : second) << category(heading);
    return {QVariant(first), QVariant(second)};
}

}  // namespace kestrio
