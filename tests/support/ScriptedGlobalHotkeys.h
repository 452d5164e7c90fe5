#pragma once

#include "platform/GlobalHotkeys.h"
#include "platform/KeySymbols.h"

#include <algorithm>
#include <map>
#include <vector>

namespace kestrio {

/// A keyboard that a test presses. Codes that stand for no key are impossible, as on a real one.
class ScriptedGlobalHotkeys : public GlobalHotkeys {
  public:
    std::map<int, KeyCombination> registered;  ///< by id
    std::vector<KeyCombination> taken;         ///< those that other programs hold
    bool isImpossible = false;                 ///< the desktop has no global hotkeys
    int registrationCount = 0;                 ///< tries, also those in vain

    HotkeyRegistration registerHotkey(int id, KeyCombination combination) override {
        ++registrationCount;
        registered.erase(id);
        const bool isKey = qtKey(combination.keyCode) || isKeySymbol(combination.keyCode);
        if (isImpossible || !isKey) return HotkeyRegistration::impossible;
        if (isHeldByOthers(combination)) return HotkeyRegistration::taken;
        registered[id] = combination;
        return HotkeyRegistration::registered;
    }

    void unregisterHotkey(int id) override { registered.erase(id); }

    /// The user presses what is registered under this id; nothing happens where nothing is.
    void press(int id) {
        if (registered.contains(id)) Q_EMIT pressed(id);
    }

  private:
    bool isHeldByOthers(const KeyCombination& combination) const {
        const auto isOwn = [&](const auto& entry) { return entry.second == combination; };
        return std::find(taken.begin(), taken.end(), combination) != taken.end() ||
               std::any_of(registered.begin(), registered.end(), isOwn);
    }
};

}  // namespace kestrio
