#include "editor/views/ThemePanel.h"

#include "editor/views/ViewRows.h"

#include <algorithm>

namespace kestrio {

ThemePanel::ThemePanel(EditorViewModel& editor, std::shared_ptr<UserDefaults> userDefaults,
                       QObject* parent)
    : QObject(parent),
      editor_(editor),
      themes_(std::make_shared<ThemeStorageService>(std::move(userDefaults))) {
    connect(&themes_, &ThemeViewModel::userThemesChanged, this, &ThemePanel::themesChanged);
    using Editor = EditorViewModel;
    for (const auto signal :
         {&Editor::currentPresetThemeIdChanged, &Editor::currentThemeChanged,
          &Editor::backdropChanged, &Editor::mockupChanged, &Editor::frameStyleChanged}) {
        connect(&editor, signal, this, &ThemePanel::currentChanged);
    }
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
    const auto& id = editor_.currentPresetThemeId();
    const PresetTheme* preset = id ? PresetTheme::find(*id) : nullptr;
    return preset && preset->style() == editor_.style() ? *id : QString();
}

QString ThemePanel::currentTheme() const {
    const auto& theme = editor_.currentTheme();
    return theme && theme->style() == editor_.style() ? theme->id.toString(QUuid::WithoutBraces)
                                                      : QString();
}

void ThemePanel::applyPreset(const QString& id) {
    if (const PresetTheme* preset = PresetTheme::find(id)) editor_.applyPresetTheme(*preset);
}

void ThemePanel::applyTheme(const QString& id) {
    const auto theme = std::ranges::find(userThemes(), QUuid::fromString(id), &Theme::id);
    if (theme != userThemes().end()) editor_.applyTheme(*theme);
}

QString ThemePanel::nameProblem(const QString& name) const {
    const bool isTaken = std::ranges::count(userThemes(), name.trimmed(), &Theme::name) > 0;
    return isTaken ? localised("A theme with this name already exists") : QString();
}

void ThemePanel::save(const QString& name) {
    if (name.trimmed().isEmpty()) {
        editor_.set_errorMessage(localised("A theme needs a name"));
        return;
    }
    themes_.saveTheme(name.trimmed(), editor_.style());
    if (!themes_.errorMessage().isEmpty()) {
        editor_.set_errorMessage(themes_.errorMessage());
        return;
    }
    const auto saved = std::ranges::find(userThemes(), name.trimmed(), &Theme::name);
    if (saved != userThemes().end()) editor_.applyTheme(*saved);
    editor_.set_toastMessage(localised("Theme saved"));
}

void ThemePanel::remove(const QString& id) {
    themes_.deleteTheme(QUuid::fromString(id));
    if (!themes_.errorMessage().isEmpty()) editor_.set_errorMessage(themes_.errorMessage());
}

}  // namespace kestrio
