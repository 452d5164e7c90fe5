#include "editor/views/EditorController.h"
#include "editor/views/ViewRows.h"
#include "render/style/EffectPreset.h"
#include "render/style/GradientPreset.h"

// What the editor's pickers offer.

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

/// With what assistive programs say of each.
QVariantList frameRows() {
    QVariantList rows;
    for (const auto& each : frameStyles) {
        QVariantMap values = viewRow(rawName(each.value), displayName(each.value));
        const QString spoken = Kestrio::tr(frameMetrics(each.value).accessibilityText);
        if (!spoken.isEmpty()) values.insert(QStringLiteral("spoken"), spoken);
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
            {QStringLiteral("frame"), frameRows()},
            {QStringLiteral("enhancement"), viewRows<AIEnhancementMode>()},
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

}  // namespace kestrio
