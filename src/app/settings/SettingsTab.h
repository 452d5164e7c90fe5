#pragma once

#include "core/EnumTable.h"

namespace kestrio {

/// The tabs of the settings window.
enum class SettingsTab { general, screenshots, shortcuts, privacy, about };

inline constexpr EnumTable<SettingsTab, 5> settingsTabs = {{
    {SettingsTab::general, "general", "General"},
    {SettingsTab::screenshots, "screenshots", "Screenshots"},
    {SettingsTab::shortcuts, "shortcuts", "Shortcuts"},
    {SettingsTab::privacy, "privacy", "Privacy"},
    {SettingsTab::about, "about", "About"},
}};
constexpr const auto& enumTable(SettingsTab) {
    return settingsTabs;
}

}  // namespace kestrio
