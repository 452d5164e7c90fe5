#include "render/watermark/WatermarkViewModel.h"

namespace kestrio {

WatermarkViewModel::WatermarkViewModel(std::shared_ptr<WatermarkServiceProtocol> watermarkService,
                                       QObject* parent)
    : QObject(parent), watermarkService_(std::move(watermarkService)) {
    reload();
}

Image WatermarkViewModel::applied(const Image& image) const {
    return isEnabled() ? watermarkService_->apply(image, settings()) : image;
}

void WatermarkViewModel::savePreset(const QString& name) {
    clearMessages();
    if (name.trimmed().isEmpty()) {
        set_errorMessage(Kestrio::tr("Preset name cannot be empty"));
        return;
    }
    try {
        watermarkService_->savePreset(name, settings());
        set_successMessage(Kestrio::tr("Preset '%1' saved").arg(name));
        reload();
    } catch (const Error& error) {
        set_errorMessage(Kestrio::tr("Failed to save preset: %1").arg(error.errorDescription()));
    }
}

void WatermarkViewModel::deletePreset(QUuid id) {
    clearMessages();
    try {
        watermarkService_->deletePreset(id);
        if (selectedPresetId() == id) set_selectedPresetId(std::nullopt);
        set_successMessage(Kestrio::tr("Preset deleted"));
        reload();
    } catch (const Error& error) {
        set_errorMessage(Kestrio::tr("Failed to delete preset: %1").arg(error.errorDescription()));
    }
}

void WatermarkViewModel::selectPreset(QUuid id) {
    for (const WatermarkPreset& preset : presets()) {
        if (preset.id != id) continue;
        set_settings(preset.settings);
        set_selectedPresetId(id);
        return;
    }
}

void WatermarkViewModel::clearMessages() {
    set_errorMessage({});
    set_successMessage({});
}

void WatermarkViewModel::reload() {
    try {
        set_presets(watermarkService_->presets());
    } catch (const Error&) {
        set_errorMessage(Kestrio::tr("The saved watermark presets cannot be read"));
    }
}

}  // namespace kestrio
