#pragma once

#include "app/hotkeys/HotkeyAction.h"
#include "core/Published.h"
#include "platform/GlobalHotkeys.h"
#include "settings/AppSettingsService.h"

#include <functional>
#include <map>
#include <memory>

namespace kestrio {

/// Keeps the global hotkeys registered as the settings have them. Only actions that have a handler
/// are registered: a combination that does nothing here is left to other programs. One that another
/// program holds does not work, and the others still do. Main thread.
class HotkeyManager : public QObject {
    Q_OBJECT
    /// Takes effect at the next registering.
    PUBLISHED_WRITABLE(bool, isEnabled, true)

  public:
    HotkeyManager(std::shared_ptr<GlobalHotkeys> hotkeys,
                  std::shared_ptr<AppSettingsServiceProtocol> settings, QObject* parent = nullptr);
    ~HotkeyManager() override;

    /// Called from the event loop, never inside the desktop's own dispatch.
    void setHandler(HotkeyAction action, std::function<void()> handler);
    bool hasHandler(HotkeyAction action) const { return handlers_.contains(action); }

    /// Registers what is not registered yet, with the combinations of the settings.
    void registerHotkeys();
    void unregisterHotkeys();
    /// Lets go of all combinations, so that one can be typed into a field, until the next
    /// registerHotkeys().
    void suspend() { unregisterHotkeys(); }
    /// Takes new combinations; nothing happens where all are the same.
    void update(const AppSettings& settings);

    /// How the last attempt went; nothing where none was made.
    std::optional<HotkeyRegistration> state(HotkeyAction action) const;
    Q_SIGNAL void statesChanged();

  private:
    void adopt(const AppSettings& settings);
    void trigger(int id);

    std::shared_ptr<GlobalHotkeys> hotkeys_;
    std::shared_ptr<AppSettingsServiceProtocol> settings_;
    std::map<HotkeyAction, std::function<void()>> handlers_;
    std::map<HotkeyAction, HotkeyConfig> configs_;
    std::map<HotkeyAction, HotkeyRegistration> states_;
    bool isRegistered_ = false;
};

}  // namespace kestrio
