#include "app/hotkeys/HotkeyAction.h"

#include "core/Localisation.h"

namespace kestrio {

const HotkeyRow& hotkeyRow(HotkeyAction action) {
    return hotkeyRows.at(static_cast<std::size_t>(action) - 1);
}

QString hotkeyConflict(const AppSettings& settings, HotkeyAction target,
                       const HotkeyConfig& candidate) {
    for (const HotkeyRow& row : hotkeyRows) {
        if (row.action == target || settings.*row.config != candidate) continue;
        return localised("Conflicts with ") + u'"' + localised(row.label) + u'"';
    }
    return {};
}

}  // namespace kestrio
