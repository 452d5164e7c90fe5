#include "editor/views/WatermarkPanel.h"

#include "editor/views/PictureFile.h"
#include "editor/views/ViewRows.h"

#include <QFontDatabase>

namespace kestrio {

WatermarkPanel::WatermarkPanel(EditorViewModel& editor, QObject* parent)
    : QObject(parent), editor_(editor) {
    using Mark = WatermarkViewModel;
    connect(&mark(), &Mark::presetsChanged, this, &WatermarkPanel::presetsChanged);
    connect(&mark(), &Mark::selectedPresetIdChanged, this, &WatermarkPanel::presetsChanged);
    connect(&mark(), &Mark::settingsChanged, this, &WatermarkPanel::presetsChanged);
    connect(&mark(), &Mark::settingsChanged, this, &WatermarkPanel::pictureChanged);
    connect(&mark(), &Mark::errorMessageChanged, this, [this] {
        if (!mark().errorMessage().isEmpty()) editor_.set_errorMessage(mark().errorMessage());
    });
    connect(&mark(), &Mark::successMessageChanged, this, [this] {
        if (!mark().successMessage().isEmpty()) editor_.set_toastMessage(mark().successMessage());
    });
}

QVariantList WatermarkPanel::types() const {
    return viewRows<WatermarkType>();
}

QVariantList WatermarkPanel::positions() const {
    return viewRows<WatermarkPosition>();
}

QStringList WatermarkPanel::fonts() const {
    QStringList families = QFontDatabase::families(QFontDatabase::Latin);
    families.removeDuplicates();
    return families;
}

QVariantList WatermarkPanel::presets() const {
    QVariantList rows;
    for (const WatermarkPreset& preset : mark().presets())
        rows << viewRow(preset.id.toString(QUuid::WithoutBraces), preset.name);
    return rows;
}

QString WatermarkPanel::currentPreset() const {
    const auto& id = mark().selectedPresetId();
    for (const WatermarkPreset& preset : mark().presets()) {
        // A mark that was changed by hand is not the one it began as.
        if (id == preset.id && preset.settings == mark().settings()) {
            return id->toString(QUuid::WithoutBraces);
        }
    }
    return {};
}

QUrl WatermarkPanel::picture() const {
    const auto& data = mark().settings().imageData;
    if (!data || data->isEmpty()) return {};
    return QStringLiteral("data:image;base64,") + QString::fromLatin1(data->toBase64());
}

void WatermarkPanel::setPicture(const QUrl& file) {
    readPictureFile(editor_, file.toLocalFile(), [this](const PictureFile& picture) {
        WatermarkSettings settings = mark().settings();
        settings.type = WatermarkType::image;
        settings.imageData = picture.data;
        mark().set_settings(settings);
    });
}

void WatermarkPanel::savePreset(const QString& name) {
    mark().savePreset(name.trimmed());
}

void WatermarkPanel::selectPreset(const QString& id) {
    mark().selectPreset(QUuid::fromString(id));
    mark().set_isEnabled(true);
}

void WatermarkPanel::deletePreset(const QString& id) {
    mark().deletePreset(QUuid::fromString(id));
}

}  // namespace kestrio
