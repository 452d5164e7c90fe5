#include "editor/views/ThemePanel.h"

#include "editor/views/ViewRows.h"

#include <algorithm>

namespace kestrio {

ThemePanel::ThemePanel(EditorViewModel& editor, std::shared_ptr<ThemeStorageServiceProtocol> themes,
                       QObject* parent)
    : QObject(parent), editor_(editor), themes_(std::move(themes)) {
    connect(&themes_, &ThemeViewModel::userThemesChanged, this, &ThemePanel::themesChanged);
    using Style = StyleModel;
    for (const auto signal :
         {&Style::currentPresetThemeIdChanged, &Style::currentThemeChanged, &Style::styleChanged})
        connect(&editor.styleModel(), signal, this, &ThemePanel::currentChanged);
}

QVariantList ThemePanel::presets() const {
    return viewRows(PresetTheme::all());
}

QVariantList ThemePanel::themes() const {
    QVariantList rows;
    for (const Theme& theme : userThemes())
        rows << viewRow(theme.id.toString(QUuid::WithoutBraces), theme.name);
    return rows;
}

// A style that was changed by hand is not the one it began as.
QString ThemePanel::currentPreset() const {
    const auto& id = editor_.styleModel().currentPresetThemeId();
    const PresetTheme* preset = id ? PresetTheme::find(*id) : nullptr;
    return preset && preset->style() == editor_.style() ? *id : QString();
}

QString ThemePanel::currentTheme() const {
    const auto& theme = editor_.styleModel().currentTheme();
    return theme && theme->style() == editor_.style() ? theme->id.toString(QUuid::WithoutBraces)
                                                      : QString();
}

void ThemePanel::applyPreset(const QString& id) {
    if (const PresetTheme* preset = PresetTheme::find(id)) editor_.applyPresetTheme(*preset);
}

const Theme* ThemePanel::find(const QString& id) const {
    const auto theme = std::ranges::find(userThemes(), QUuid::fromString(id), &Theme::id);
    return theme == userThemes().end() ? nullptr : &*theme;
}

void ThemePanel::applyTheme(const QString& id) {
    if (const Theme* theme = find(id)) editor_.applyTheme(*theme);
}

bool ThemePanel::isNameTaken(const QString& name, const QString& id) const {
    return std::ranges::any_of(userThemes(), [&](const Theme& theme) {
        return theme.name == name.trimmed() && theme.id != QUuid::fromString(id);
    });
}

bool ThemePanel::reportFailure() {
    if (themes_.errorMessage().isEmpty()) return false;
    editor_.set_errorMessage(themes_.errorMessage());
    return true;
}

void ThemePanel::reportLoadProblem() {
    reportFailure();
}

void ThemePanel::save(const QString& name) {
    if (name.trimmed().isEmpty()) {
        editor_.set_errorMessage(Kestrio::tr("A theme needs a name"));
        return;
    }
    const auto existing = std::ranges::find(userThemes(), name.trimmed(), &Theme::name);
    if (existing != userThemes().end()) {
        overwrite(existing->id.toString());
        return;
    }
    themes_.saveTheme(name.trimmed(), editor_.style());
    if (reportFailure()) return;
    const auto saved = std::ranges::find(userThemes(), name.trimmed(), &Theme::name);
    if (saved != userThemes().end()) editor_.applyTheme(*saved);
    editor_.set_toastMessage(Kestrio::tr("Theme saved"));
}

void ThemePanel::overwrite(const QString& id) {
    const Theme* theme = find(id);
    if (!theme) return;
    const Theme changed = theme->withStyle(editor_.style());
    themes_.updateTheme(changed);
    if (reportFailure()) return;
    editor_.applyTheme(changed);
    editor_.set_toastMessage(Kestrio::tr("Theme saved"));
}

void ThemePanel::rename(const QString& id, const QString& name) {
    const Theme* theme = find(id);
    if (!theme || name.trimmed().isEmpty()) return;
    Theme changed = *theme;
    changed.name = name.trimmed();
    themes_.updateTheme(changed);
    reportFailure();
}

void ThemePanel::remove(const QString& id) {
    themes_.deleteTheme(QUuid::fromString(id));
    reportFailure();
}

}  // namespace kestrio
