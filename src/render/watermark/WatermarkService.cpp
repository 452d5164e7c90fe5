#include "render/watermark/WatermarkService.h"

#include "render/watermark/WatermarkPainter.h"

namespace kestrio {

namespace {
const QString presetsKey = QStringLiteral("com.kestrio.watermarkPresets");
}

QString WatermarkError::errorDescription() const {
    switch (case_) {
        case Case::saveFailed:
            return Kestrio::tr("Failed to save preset: %1").arg(subject_);
        case Case::duplicateName:
            return Kestrio::tr("Preset name already exists: %1").arg(subject_);
        case Case::invalidImageData:
            return Kestrio::tr("Invalid watermark image data");
        case Case::presetNotFound:
            return Kestrio::tr("Watermark preset not found");
        case Case::encodingFailed:
            return Kestrio::tr("Failed to encode preset data");
    }
    return {};
}

Image WatermarkService::apply(Image image, const WatermarkSettings& settings) {
    return paintWatermark(std::move(image), settings);
}

std::vector<WatermarkPreset> WatermarkService::presets() {
    const auto data = userDefaults_->data(presetsKey);
    if (!data) return {};
    try {
        return decodeJsonText<std::vector<WatermarkPreset>>(*data);
    } catch (const JsonError& error) {
        throw WatermarkError::saveFailed(
            Kestrio::tr("the stored presets cannot be read: %1").arg(error.errorDescription()));
    }
}

void WatermarkService::savePreset(const QString& name, const WatermarkSettings& settings) {
    auto list = presets();
    for (const WatermarkPreset& preset : list) {
        if (preset.name == name) throw WatermarkError::duplicateName(name);
    }
    list.push_back({QUuid::createUuid(), name, settings, Date::now()});
    write(list);
}

void WatermarkService::deletePreset(QUuid id) {
    auto list = presets();
    const auto removed = std::erase_if(list, [&](const auto& preset) { return preset.id == id; });
    if (removed == 0) throw WatermarkError::presetNotFound();
    write(list);
}

void WatermarkService::write(const std::vector<WatermarkPreset>& presets) {
    try {
        userDefaults_->setData(presetsKey, encodeJsonText(presets));
    } catch (const JsonError&) {
        throw WatermarkError::encodingFailed();
    }
}

}  // namespace kestrio
