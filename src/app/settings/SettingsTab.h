#pragma once

#include "core/EnumTable.h"

namespace kestrio {

/// The tabs of the settings window.
enum class SettingsTab { general, screenshots, shortcuts, privacy, about };

inline constexpr EnumTable<SettingsTab, 5> settingsTabs = {{
    {SettingsTab::general, "general", Kestrio::marked("General")},
    {SettingsTab::screenshots, "screenshots", Kestrio::marked("Screenshots")},
    {SettingsTab::shortcuts, "shortcuts", Kestrio::marked("Shortcuts")},
    {SettingsTab::privacy, "privacy", Kestrio::marked("Privacy")},
    {SettingsTab::about, "about", Kestrio::marked("About")},
}};
constexpr const auto& enumTable(SettingsTab) {
    return settingsTabs;
}

}  // namespace kestrio
