#include "editor/views/EditorChoices.h"

#include "editor/document/EditorViewModel.h"
#include "editor/views/ViewRows.h"
#include "render/style/EffectPreset.h"
#include "render/style/GradientPreset.h"

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

}  // namespace

QVariantList EditorChoices::backdropType() {
    return viewRows<BackdropType>();
}

QVariantList EditorChoices::gradientGroups() {
    QVariantList rows;
    for (const GradientGroup& group : GradientGroup::all()) {
        QVariantMap values = viewRow(group.id, Kestrio::tr(group.name.toUtf8().constData()));
        values.insert(QStringLiteral("rows"), viewRows(group.presets));
        rows << values;
    }
    return rows;
}

QVariantList EditorChoices::imageFit() {
    return viewRows<ImageScaleFit>();
}

QVariantList EditorChoices::pattern() {
    return viewRows<PatternType>();
}

QVariantList EditorChoices::overlay() {
    return viewRows<OverlayType>();
}

QVariantList EditorChoices::overlayPosition() {
    return viewRows<OverlayPosition>();
}

QVariantList EditorChoices::effect() {
    return viewRows(EffectPreset::all());
}

QVariantList EditorChoices::frame() {
    QVariantList rows;
    for (const auto& each : frameStyles) {
        QVariantMap values = viewRow(rawName(each.value), displayName(each.value));
        const QString spoken = Kestrio::tr(frameMetrics(each.value).accessibilityText);
        if (!spoken.isEmpty()) values.insert(QStringLiteral("spoken"), spoken);
        rows << values;
    }
    return rows;
}

QVariantList EditorChoices::enhancement() {
    return viewRows<AIEnhancementMode>();
}

QVariantList EditorChoices::shadowIntensity() {
    return viewRows<ShadowIntensity>();
}

QVariantList EditorChoices::light() {
    return viewRows<LightSource>();
}

QVariantList EditorChoices::aspect() {
    return aspectRows(AspectRatio::presets());
}

QVariantList EditorChoices::social() {
    QVariantList rows;
    for (const SocialPlatform& platform : SocialPlatform::all()) {
        QVariantMap values = viewRow(platform.name.toLower(), platform.name);
        values.insert(QStringLiteral("rows"), aspectRows(platform.presets));
        rows << values;
    }
    return rows;
}

}  // namespace kestrio
