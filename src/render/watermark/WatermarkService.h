#pragma once

#include "core/UserDefaults.h"
#include "imaging/Image.h"
#include "render/style/WatermarkPreset.h"

#include <memory>

namespace kestrio {

/// Every way in which watermark presets cannot be kept or found.
class WatermarkError : public Error {
  public:
    enum class Case { saveFailed, duplicateName, invalidImageData, presetNotFound, encodingFailed };

    static WatermarkError saveFailed(QString reason) {
        return {Case::saveFailed, std::move(reason)};
    }
    static WatermarkError duplicateName(QString name) {
        return {Case::duplicateName, std::move(name)};
    }
    static WatermarkError invalidImageData() { return {Case::invalidImageData, {}}; }
    static WatermarkError presetNotFound() { return {Case::presetNotFound, {}}; }
    static WatermarkError encodingFailed() { return {Case::encodingFailed, {}}; }

    Case errorCase() const { return case_; }
    QString errorDescription() const override;

  private:
    WatermarkError(Case errorCase, QString subject)
        : case_(errorCase), subject_(std::move(subject)) {}

    Case case_;
    QString subject_;
};

/// Draws watermarks and keeps the named ones.
class WatermarkServiceProtocol {
  public:
    virtual ~WatermarkServiceProtocol() = default;

    /// The picture with the mark burned in; the picture itself where there is no mark to draw.
    virtual Image apply(Image image, const WatermarkSettings& settings) = 0;

    /// The stored presets; none where nothing is stored. Throws WatermarkError::saveFailed where
    /// what is stored cannot be read, so that a save never overwrites it.
    virtual std::vector<WatermarkPreset> presets() = 0;
    /// Throws WatermarkError for a name that is taken.
    virtual void savePreset(const QString& name, const WatermarkSettings& settings) = 0;
    /// Throws WatermarkError for an unknown id.
    virtual void deletePreset(QUuid id) = 0;
};

/// Keeps the presets as one JSON list at "com.kestrio.watermarkPresets".
class WatermarkService : public WatermarkServiceProtocol {
  public:
    explicit WatermarkService(std::shared_ptr<UserDefaults> userDefaults)
        : userDefaults_(std::move(userDefaults)) {}

    Image apply(Image image, const WatermarkSettings& settings) override;
    std::vector<WatermarkPreset> presets() override;
    void savePreset(const QString& name, const WatermarkSettings& settings) override;
    void deletePreset(QUuid id) override;

  private:
    void write(const std::vector<WatermarkPreset>& presets);

    std::shared_ptr<UserDefaults> userDefaults_;
};

}  // namespace kestrio
