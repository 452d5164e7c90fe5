#pragma once

#include "core/Published.h"
#include "render/watermark/WatermarkService.h"

#include <QObject>

namespace kestrio {

/// The state of the watermark panel.
class WatermarkViewModel : public QObject {
    Q_OBJECT
    PUBLISHED_WRITABLE(bool, isEnabled, false)
    PUBLISHED_WRITABLE(WatermarkSettings, settings, {})
    PUBLISHED(std::vector<WatermarkPreset>, presets, {})
    PUBLISHED(std::optional<QUuid>, selectedPresetId, std::nullopt)
    PUBLISHED(QString, errorMessage, {})
    PUBLISHED(QString, successMessage, {})

  public:
    explicit WatermarkViewModel(std::shared_ptr<WatermarkServiceProtocol> watermarkService,
                                QObject* parent = nullptr);

    /// The picture itself while the watermark is off, else with the mark burned in.
    Image applied(const Image& image) const;

    /// Outcomes are reported in successMessage or errorMessage.
    void savePreset(const QString& name);
    void deletePreset(QUuid id);
    /// Takes a stored preset's settings over; an unknown id changes nothing.
    void selectPreset(QUuid id);

  private:
    void clearMessages();
    void reload();

    std::shared_ptr<WatermarkServiceProtocol> watermarkService_;
};

}  // namespace kestrio
