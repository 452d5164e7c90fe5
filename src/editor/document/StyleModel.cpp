#include "editor/document/StyleModel.h"

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds persistenceDelay{500};

}  // namespace

StyleModel::StyleModel(std::shared_ptr<EditorStylePersistenceServiceProtocol> persistence)
    : persistence_(std::move(persistence)) {
    persistenceDelay_.setSingleShot(true);
    persistenceDelay_.setInterval(persistenceDelay);
    connect(&persistenceDelay_, &QTimer::timeout, this, &StyleModel::persist);
    const auto persistLater = [this] { persistenceDelay_.start(); };
    for (const auto signal : {&StyleModel::backdropChanged, &StyleModel::mockupChanged,
                              &StyleModel::frameStyleChanged}) {
        connect(this, signal, this, persistLater);
        connect(this, signal, this, &StyleModel::styleChanged);
    }
    connect(this, &StyleModel::frameScaleChanged, this, &StyleModel::styleChanged);
}

void StyleModel::setStyle(const EditorStyleSettings& style) {
    set_backdrop(style.backdrop);
    set_mockup(style.mockup);
    set_frameStyle(style.frameStyle);
}

void StyleModel::setLook(EditorStyleSettings style) {
    style.backdrop.keepPixels = backdrop().keepPixels;
    setStyle(style);
}

void StyleModel::applyPresetTheme(const PresetTheme& preset) {
    setLook(preset.style());
    set_currentTheme(std::nullopt);
    set_currentPresetThemeId(preset.id);
}

void StyleModel::applyTheme(const Theme& theme) {
    setStyle(theme.style());
    set_currentTheme(theme);
    set_currentPresetThemeId(std::nullopt);
}

void StyleModel::applyLook(const EditorStyleSettings& style) {
    setLook(style);
    set_currentTheme(std::nullopt);
    set_currentPresetThemeId(std::nullopt);
}

void StyleModel::showPreset() {
    EditorStyleSettings present = style();
    present.backdrop.keepPixels = std::nullopt;
    std::optional<QString> found;
    for (const PresetTheme& preset : PresetTheme::all())
        if (preset.style() == present) found = preset.id;
    set_currentPresetThemeId(found);
}

void StyleModel::loadPersisted() {
    if (auto style = persistence_->load()) {
        double& radius = style->mockup.cornerRadius;
        radius = MockupSettings::cornerRadiusRange.clamped(radius);
        setStyle(*style);
        showPreset();
        return;
    }
    const PresetTheme& first = PresetTheme::all().front();
    setStyle(first.style());
    if (!currentPresetThemeId()) set_currentPresetThemeId(first.id);
}

void StyleModel::persist() {
    persistenceDelay_.stop();
    if (!isCleanedUp_) persistence_->save(style());
}

void StyleModel::cleanUp() {
    if (persistenceDelay_.isActive()) persist();
    isCleanedUp_ = true;
}

}  // namespace kestrio
