#include "editor/keyboard/ShortcutHintManager.h"

#include "core/Json.h"
#include "editor/commands/EditorCommand.h"
#include "editor/keyboard/ShortcutInfo.h"

namespace kestrio {

namespace {

const QString usedKey = QStringLiteral("com.kestrio.usedShortcuts");
const QString enabledKey = QStringLiteral("com.kestrio.hintsEnabled");
const QString dismissedKey = QStringLiteral("com.kestrio.dismissedHints");

}  // namespace

ShortcutHintManager::ShortcutHintManager(std::shared_ptr<UserDefaults> userDefaults,
                                         QObject* parent)
    : QObject(parent),
      userDefaults_(std::move(userDefaults)),
      dismissedHints_(storedSet(dismissedKey)) {
    set_usedShortcuts(storedSet(usedKey));
    set_hintsEnabled(userDefaults_->boolean(enabledKey).value_or(true));
    connect(this, &ShortcutHintManager::hintsEnabledChanged, this,
            [this] { userDefaults_->setBoolean(enabledKey, hintsEnabled()); });
}

std::set<QString> ShortcutHintManager::storedSet(const QString& key) const {
    const auto data = userDefaults_->data(key);
    if (!data) return {};
    try {
        const auto list = decodeJsonText<std::vector<QString>>(*data);
        return {list.begin(), list.end()};
    } catch (const JsonError&) {
        return {};
    }
}

void ShortcutHintManager::store(const QString& key, const std::set<QString>& set) {
    userDefaults_->setData(key, encodeJsonText(std::vector(set.begin(), set.end())));
}

void ShortcutHintManager::recordShortcutUsed(const QString& action) {
    std::set<QString> used = usedShortcuts();
    if (!used.insert(action).second) return;
    store(usedKey, used);
    set_usedShortcuts(std::move(used));
}

void ShortcutHintManager::dismissHint(const QString& action) {
    if (dismissedHints_.insert(action).second) store(dismissedKey, dismissedHints_);
}

bool ShortcutHintManager::isHintDue(const QString& action) const {
    return hintsEnabled() && !usedShortcuts().contains(action) && !dismissedHints_.contains(action);
}

std::optional<QString> ShortcutHintManager::takeHint(const QString& action) {
    if (!isHintDue(action)) return std::nullopt;
    const char* const tip = tipOf(action);
    if (!tip) return std::nullopt;
    dismissHint(action);
    return shownShortcut(Kestrio::tr(tip));
}

}  // namespace kestrio
