#pragma once

#include "settings/AppSettings.h"

#include <array>
#include <functional>

namespace kestrio {

/// What a global hotkey does; the number is what the desktop knows it by.
enum class HotkeyAction { region = 1, window = 2, scrolling = 3, history = 4, recording = 5 };

/// A hotkey: its label for users and where the settings keep it.
struct HotkeyRow {
    HotkeyAction action;
    const char* label;  ///< English
    HotkeyConfig AppSettings::*config;
};

inline constexpr std::array<HotkeyRow, 5> hotkeyRows = {{
    {HotkeyAction::region, Kestrio::marked("Region Capture"), &AppSettings::regionCaptureHotkey},
    {HotkeyAction::window, Kestrio::marked("Window Capture"), &AppSettings::windowCaptureHotkey},
    {HotkeyAction::scrolling, Kestrio::marked("Scrolling Capture"),
     &AppSettings::scrollingCaptureHotkey},
    {HotkeyAction::history, Kestrio::marked("History"), &AppSettings::historyHotkey},
    {HotkeyAction::recording, Kestrio::marked("Recording"), &AppSettings::recordingHotkey},
}};

const HotkeyRow& hotkeyRow(HotkeyAction action);

/// What stands against giving a hotkey this combination, for users; empty where nothing does. Only
/// the program's own hotkeys are looked at, and of these what `isOffered` says of, which users can
/// see and change.
QString hotkeyConflict(const AppSettings& settings, HotkeyAction target,
                       const HotkeyConfig& candidate,
                       const std::function<bool(HotkeyAction)>& isOffered);

/// The combination as the preferences show it ("⌃⌥A", "⇧Print").
QString hotkeyText(const HotkeyConfig& hotkey);

}  // namespace kestrio
