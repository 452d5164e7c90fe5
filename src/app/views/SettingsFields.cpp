#include "app/views/SettingsFields.h"

#include "app/language/Translations.h"
#include "app/views/ChoiceRows.h"

namespace kestrio {

namespace {

template <typename T, T AppSettings::*member>
T read(const AppSettings& settings) {
    return settings.*member;
}

template <typename T, T AppSettings::*member>
void write(SettingsViewModel& model, const T& value) {
    AppSettings settings = model.settings();
    settings.*member = value;
    model.change(settings);
}

template <typename T, T AppSettings::*member>
constexpr SettingsFieldRow<T> direct = {read<T, member>, write<T, member>};

// What is set stays to be seen, even where there is no table of it.
QVariantList languages(const AppSettings& settings) {
    QVariantList list;
    for (const auto& row : appLanguages)
        if (isTranslated(row.value) || row.value == settings.appLanguage) list << choiceRow(row);
    return list;
}

}  // namespace

const SettingsFlag::Row SettingsFields::launchAtLoginRow = {
    [](const AppSettings& settings) { return settings.launchAtLogin; },
    [](SettingsViewModel& model, const bool& value) { model.setLaunchAtLogin(value); }};

const SettingsFlag::Row SettingsFields::autoRedactOnCaptureRow =
    direct<bool, &AppSettings::autoRedactOnCapture>;

const SettingsFlag::Row SettingsFields::autoCopyToClipboardRow =
    direct<bool, &AppSettings::autoCopyToClipboard>;

const SettingsFlag::Row SettingsFields::snapToWindowInRegionCaptureRow =
    direct<bool, &AppSettings::snapToWindowInRegionCapture>;

const SettingsFlag::Row SettingsFields::showMagnifierInRegionCaptureRow =
    direct<bool, &AppSettings::showMagnifierInRegionCapture>;

const SettingsFlag::Row SettingsFields::confirmBeforeEditingRow =
    direct<bool, &AppSettings::confirmBeforeEditing>;

const SettingsText::Row SettingsFields::defaultSavePathRow = {
    read<QString, &AppSettings::defaultSavePath>,
    [](SettingsViewModel& model, const QString& value) {
        if (!value.isEmpty()) write<QString, &AppSettings::defaultSavePath>(model, value);
    }};

const SettingsText::Row SettingsFields::fileNamingPatternRow =
    direct<QString, &AppSettings::fileNamingPattern>;

const SettingsSelection::Row SettingsFields::defaultExportFormatRow = {
    [](const AppSettings& settings) { return rawString(settings.defaultExportFormat); },
    [](SettingsViewModel& model, const QString& value) {
        const auto format = fromRawString<ExportFormat>(value.toStdString());
        if (format) write<ExportFormat, &AppSettings::defaultExportFormat>(model, *format);
    },
    [](const AppSettings&) { return choiceRows(exportFormats); }};

const SettingsSelection::Row SettingsFields::scrollingCaptureModeRow = {
    [](const AppSettings& settings) { return rawString(settings.scrollingCaptureMode); },
    [](SettingsViewModel& model, const QString& value) {
        const auto mode = fromRawString<ScrollingCaptureMode>(value.toStdString());
        if (mode) write<ScrollingCaptureMode, &AppSettings::scrollingCaptureMode>(model, *mode);
    },
    [](const AppSettings&) { return choiceRows(scrollingCaptureModes); }};

const SettingsSelection::Row SettingsFields::appLanguageRow = {
    [](const AppSettings& settings) { return rawString(settings.appLanguage); },
    [](SettingsViewModel& model, const QString& value) {
        const auto language = fromRawString<AppLanguage>(value.toStdString());
        if (language) model.setLanguage(*language);
    },
    languages};

SettingsFields::SettingsFields(SettingsViewModel& model, QObject* parent)
    : QObject(parent), model_(model) {
    connect(&model, &SettingsViewModel::settingsChanged, this, &SettingsFields::refresh);
}

void SettingsFields::refresh() {
    for (QObject* field : children())
        static_cast<SettingsField*>(field)->refresh();
}

}  // namespace kestrio
