#pragma once

#include <QString>
#include <Qt>
#include <optional>

namespace kestrio {

// Keys that have no virtual key code are known by their keysym, the number that X11 has given every
// key and character, above a base that no virtual key code reaches. Settings hold these codes too.

inline constexpr int keySymbolBase = 0x40000000;

constexpr bool isKeySymbol(int keyCode) {
    return keyCode >= keySymbolBase;
}
constexpr quint32 symbolOfKeyCode(int keyCode) {
    return static_cast<quint32>(keyCode - keySymbolBase);
}
constexpr int keyCodeOfSymbol(quint32 symbol) {
    return keySymbolBase + static_cast<int>(symbol);
}

/// The symbol of a key that types a character or has a place of its own on keyboards; none for
/// modifiers, locks and keys that are not known.
std::optional<quint32> keySymbol(Qt::Key key);
/// Modifiers, locks and what chooses a level, which make no hotkey.
bool isModifierSymbol(quint32 symbol);
/// As menus show it ("Print"); a key without a name is shown by its number.
QString keySymbolName(quint32 symbol);

/// Whether the key types and edits nothing, such as Print Screen, so that it can be a hotkey
/// without any modifier.
bool standsAlone(int keyCode);

}  // namespace kestrio
