#pragma once

#include "app/views/SettingsField.h"

namespace kestrio {

/// A field for QML, with its row in SettingsFields.cpp.
#define KESTRIO_SETTINGS_FIELD(Kind, name)             \
    Q_PROPERTY(kestrio::Kind* name READ name CONSTANT) \
  public:                                              \
    Kind* name() {                                     \
        return &name##_;                               \
    }                                                  \
                                                       \
  private:                                             \
    static const Kind::Row name##Row;                  \
    Kind name##_{model_, #name, name##Row, this};

/// The settings that a view changes directly. Main thread; the model outlives it.
class SettingsFields : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the settings")
    SettingsViewModel& model_;

    KESTRIO_SETTINGS_FIELD(SettingsFlag, launchAtLogin)
    KESTRIO_SETTINGS_FIELD(SettingsFlag, autoCopyToClipboard)
    KESTRIO_SETTINGS_FIELD(SettingsFlag, snapToWindowInRegionCapture)
    KESTRIO_SETTINGS_FIELD(SettingsFlag, showMagnifierInRegionCapture)
    KESTRIO_SETTINGS_FIELD(SettingsFlag, confirmBeforeEditing)
    KESTRIO_SETTINGS_FIELD(SettingsFlag, autoRedactOnCapture)
    KESTRIO_SETTINGS_FIELD(SettingsText, defaultSavePath)
    KESTRIO_SETTINGS_FIELD(SettingsText, fileNamingPattern)
    KESTRIO_SETTINGS_FIELD(SettingsSelection, defaultExportFormat)
    KESTRIO_SETTINGS_FIELD(SettingsSelection, scrollingCaptureMode)
    KESTRIO_SETTINGS_FIELD(SettingsSelection, appLanguage)

  public:
    explicit SettingsFields(SettingsViewModel& model, QObject* parent = nullptr);

  private:
    /// Its children are its fields and nothing else.
    void refresh();
};

}  // namespace kestrio
