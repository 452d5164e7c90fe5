#include "app/hotkeys/HotkeyManager.h"

namespace kestrio {

HotkeyManager::HotkeyManager(std::shared_ptr<GlobalHotkeys> hotkeys,
                             std::shared_ptr<AppSettingsServiceProtocol> settings, QObject* parent)
    : QObject(parent), hotkeys_(std::move(hotkeys)), settings_(std::move(settings)) {
    adopt(AppSettings());
    // Queued: a handler may take the keyboard, which the desktop's dispatch still holds.
    connect(hotkeys_.get(), &GlobalHotkeys::pressed, this, &HotkeyManager::trigger,
            Qt::QueuedConnection);
}

HotkeyManager::~HotkeyManager() {
    unregisterHotkeys();
}

void HotkeyManager::adopt(const AppSettings& settings) {
    for (const HotkeyRow& row : hotkeyRows)
        configs_[row.action] = settings.*row.config;
}

void HotkeyManager::setHandler(HotkeyAction action, std::function<void()> handler) {
    handlers_[action] = std::move(handler);
}

void HotkeyManager::registerHotkeys() {
    if (!isEnabled()) return;
    adopt(settings_->load());
    isRegistered_ = true;
    for (const auto& [action, handler] : handlers_) {
        if (state(action) == HotkeyRegistration::registered) continue;
        const HotkeyConfig& config = configs_.at(action);
        states_[action] = hotkeys_->registerHotkey(static_cast<int>(action),
                                                   {config.keyCode, config.carbonModifiers});
    }
    Q_EMIT statesChanged();
}

void HotkeyManager::unregisterHotkeys() {
    isRegistered_ = false;
    for (const auto& [action, state] : states_)
        if (state == HotkeyRegistration::registered) {
            hotkeys_->unregisterHotkey(static_cast<int>(action));
        }
    states_.clear();
}

void HotkeyManager::update(const AppSettings& settings) {
    const auto before = configs_;
    adopt(settings);
    if (configs_ == before) return;
    // While a combination is being typed, nothing is registered; it will be when that ends.
    if (!isRegistered_) return;
    unregisterHotkeys();
    registerHotkeys();
}

std::optional<HotkeyRegistration> HotkeyManager::state(HotkeyAction action) const {
    const auto found = states_.find(action);
    if (found == states_.end()) return std::nullopt;
    return found->second;
}

void HotkeyManager::trigger(int id) {
    const auto found = handlers_.find(static_cast<HotkeyAction>(id));
    if (found != handlers_.end()) found->second();
}

}  // namespace kestrio
