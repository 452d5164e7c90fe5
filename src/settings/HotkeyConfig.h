#pragma once

#include "core/Json.h"

namespace kestrio {

/// A global hotkey: a virtual key code of the Mac keyboard (0 is A), or a code of the platform's
/// for keys without one, and a mask of modifiers. The codes are what settings files hold on every
/// platform; the platform maps them to its own keys.
struct HotkeyConfig {
    static constexpr int command = 0x100;
    static constexpr int shift = 0x200;
    static constexpr int option = 0x800;
    static constexpr int control = 0x1000;

    int keyCode = 0;
    int carbonModifiers = 0;

    bool operator==(const HotkeyConfig&) const = default;

    /// As in "⌃⌥A": modifiers in the order ⌃ ⌥ ⇧ ⌘, then the key; `otherKey` stands for one that
    /// has no virtual key code.
    QString displayString(const QString& otherKey = QStringLiteral("?")) const;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("keyCode", &HotkeyConfig::keyCode),
                          jsonField("carbonModifiers", &HotkeyConfig::carbonModifiers));
    }
};

}  // namespace kestrio
