#include "editor/keyboard/ShortcutHintManager.h"

#include "core/Json.h"
#include "editor/keyboard/ShortcutInfo.h"

namespace kestrio {

namespace {

const QString usedKey = QStringLiteral("com.kestrio.usedShortcuts");
const QString enabledKey = QStringLiteral("com.kestrio.hintsEnabled");
const QString dismissedKey = QStringLiteral("com.kestrio.dismissedHints");

struct Tip {
    const char* action;
    const char* text;
};

// Whole sentences, so that translations may order them as they like.
constexpr Tip tips[] = {
    {"select", Kestrio::marked("Tip: Press V to switch to Select tool")},
    {"arrow", Kestrio::marked("Tip: Press A to switch to Arrow tool")},
    {"rectangle", Kestrio::marked("Tip: Press R to switch to Rectangle tool")},
    {"circle", Kestrio::marked("Tip: Press O to switch to Circle tool")},
    {"text", Kestrio::marked("Tip: Press T to switch to Text tool")},
    {"number", Kestrio::marked("Tip: Press N to switch to Number tool")},
    {"brush", Kestrio::marked("Tip: Press B to switch to Brush tool")},
    {"highlighter", Kestrio::marked("Tip: Press H to switch to Highlighter tool")},
    {"blur", Kestrio::marked("Tip: Press U to switch to Blur tool")},
    {"eraser", Kestrio::marked("Tip: Press E to switch to Eraser tool")},
    {"undo", Kestrio::marked("Tip: Press ⌘Z to undo")},
    {"redo", Kestrio::marked("Tip: Press ⌘⇧Z to redo")},
    {"delete", Kestrio::marked("Tip: Press Delete or Backspace to delete")},
    {"selectAll", Kestrio::marked("Tip: Press ⌘A to select all annotations")},
    {"bringToFront", Kestrio::marked("Tip: Press ⌘] to bring to front")},
    {"sendToBack", Kestrio::marked("Tip: Press ⌘[ to send to back")},
    {"eyedropper", Kestrio::marked("Tip: Press I to activate color picker")},
};

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
    const auto tip = std::ranges::find_if(
        tips, [&](const Tip& each) { return action == QLatin1StringView(each.action); });
    if (tip == std::end(tips)) return std::nullopt;
    dismissHint(action);
    return shownShortcut(Kestrio::tr(tip->text));
}

}  // namespace kestrio
