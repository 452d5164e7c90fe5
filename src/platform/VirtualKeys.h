#pragma once

#include <QString>
#include <Qt>
#include <functional>
#include <optional>

class QKeyEvent;

namespace kestrio {

/// A key with modifiers as settings files hold it on every platform: a virtual key code of the Mac
/// keyboard (0 is A), or the code of a key symbol for keys without one, and the mask of its
/// modifiers.
struct KeyCombination {
    static constexpr int command = 0x100;
    static constexpr int shift = 0x200;
    static constexpr int option = 0x800;
    static constexpr int control = 0x1000;

    int keyCode = 0;
    int modifiers = 0;

    bool operator==(const KeyCombination&) const = default;
};

/// The key that a virtual key code stands for on the US keyboard, unshifted; none for codes that
/// are not in the table.
std::optional<Qt::Key> qtKey(int virtualKeyCode);
/// The reverse.
std::optional<int> virtualKeyCode(Qt::Key key);

/// ⌃ is Control, ⌥ Alt, ⇧ Shift and ⌘ Super here.
Qt::KeyboardModifiers qtModifiers(int modifiers);
int modifierMask(Qt::KeyboardModifiers modifiers);

/// The combination in words, as the desktop's menus show it ("Ctrl+Alt+A"); empty for a code that
/// stands for no key.
QString shortcutText(const KeyCombination& shortcut);

/// What a press of a key would be as a hotkey: the key as it is without modifiers, so that shifted
/// digits and keys of other layouts keep their code. None for modifiers and for keys that nobody
/// knows.
std::optional<KeyCombination> combinationOf(const QKeyEvent& event);

/// The same of keys as Qt names them on a US keyboard.
std::optional<KeyCombination> combinationOf(QKeyCombination keys);

/// How a platform finds the code of an event's key without modifiers; none for keys that it does
/// not know. Without a lookup, or where it has no answer, the event's own key counts as one of a US
/// keyboard.
using UnshiftedKeyLookup = std::function<std::optional<int>(const QKeyEvent&)>;
void setUnshiftedKeyLookup(UnshiftedKeyLookup lookup);

}  // namespace kestrio
