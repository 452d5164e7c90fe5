#include "app/hotkeys/HotkeyAction.h"

#include "core/Localisation.h"
#include "platform/KeySymbols.h"

namespace kestrio {

const HotkeyRow& hotkeyRow(HotkeyAction action) {
    return hotkeyRows.at(static_cast<std::size_t>(action) - 1);
}

QString hotkeyConflict(const AppSettings& settings, HotkeyAction target,
                       const HotkeyConfig& candidate,
                       const std::function<bool(HotkeyAction)>& isOffered) {
    for (const HotkeyRow& row : hotkeyRows) {
        if (row.action == target || settings.*row.config != candidate) continue;
        if (!isOffered(row.action)) continue;
        return Kestrio::tr("Conflicts with \"%1\"").arg(Kestrio::tr(row.label));
    }
    return {};
}

QString hotkeyText(const HotkeyConfig& hotkey) {
    if (!isKeySymbol(hotkey.keyCode)) return hotkey.displayString();
    return hotkey.displayString(keySymbolName(symbolOfKeyCode(hotkey.keyCode)));
}

}  // namespace kestrio
