#include "app/views/SettingsFields.h"

namespace kestrio {

namespace {

struct Field {
    const char* name;
    QVariant (*read)(const AppSettings&);
    void (*write)(AppSettings&, const QVariant&);
};

template <auto member>
QVariant read(const AppSettings& settings) {
    return QVariant::fromValue(settings.*member);
}

template <bool AppSettings::*member>
constexpr Field toggle(const char* name) {
    return {name, read<member>, [](AppSettings& settings, const QVariant& value) {
                settings.*member = value.toBool();
            }};
}

template <auto member>
QVariant readRaw(const AppSettings& settings) {
    return rawString(settings.*member);
}

template <auto member>
void writeRaw(AppSettings& settings, const QVariant& value) {
    using Choice = std::remove_reference_t<decltype(settings.*member)>;
    const auto chosen = fromRawString<Choice>(value.toString().toStdString());
    if (chosen) settings.*member = *chosen;
}

// One of a few values, known by its raw string.
template <auto member>
constexpr Field choice(const char* name) {
    return {name, readRaw<member>, writeRaw<member>};
}

constexpr Field fields[] = {
    toggle<&AppSettings::autoCopyToClipboard>("autoCopyToClipboard"),
    toggle<&AppSettings::snapToWindowInRegionCapture>("snapToWindowInRegionCapture"),
    toggle<&AppSettings::showMagnifierInRegionCapture>("showMagnifierInRegionCapture"),
    toggle<&AppSettings::confirmBeforeEditing>("confirmBeforeEditing"),
    {"defaultSavePath", read<&AppSettings::defaultSavePath>,
     [](AppSettings& settings, const QVariant& value) {
         if (!value.toString().isEmpty()) settings.defaultSavePath = value.toString();
     }},
    {"fileNamingPattern", read<&AppSettings::fileNamingPattern>,
     [](AppSettings& settings, const QVariant& value) {
         settings.fileNamingPattern = value.toString();
     }},
    choice<&AppSettings::defaultExportFormat>("defaultExportFormat"),
    choice<&AppSettings::scrollingCaptureMode>("scrollingCaptureMode"),
};

}  // namespace

QVariantMap settingsValues(const AppSettings& settings) {
    QVariantMap values;
    for (const Field& field : fields)
        values[QString::fromLatin1(field.name)] = field.read(settings);
    return values;
}

AppSettings withSetting(AppSettings settings, const QString& field, const QVariant& value) {
    for (const Field& known : fields)
        if (field == QLatin1String(known.name)) known.write(settings, value);
    return settings;
}

}  // namespace kestrio
