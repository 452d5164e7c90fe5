#pragma once

#include "core/Published.h"
#include "core/UserDefaults.h"

#include <QObject>
#include <memory>
#include <set>

namespace kestrio {

/// Remembers between runs which shortcuts the user has used, and has a tip for each of the others,
/// which is shown once. Actions are named as in ShortcutInfo. Main thread only.
class ShortcutHintManager : public QObject {
    Q_OBJECT
    PUBLISHED(std::set<QString>, usedShortcuts, {})
    PUBLISHED_WRITABLE(bool, hintsEnabled, true)

  public:
    explicit ShortcutHintManager(std::shared_ptr<UserDefaults> userDefaults,
                                 QObject* parent = nullptr);

    const std::set<QString>& dismissedHints() const { return dismissedHints_; }

    void recordShortcutUsed(const QString& action);
    void dismissHint(const QString& action);
    /// Whether the user neither knows the shortcut nor has seen or refused its tip.
    bool isHintDue(const QString& action) const;
    /// The tip to show now that an action was done without its shortcut, in the user's language;
    /// none where it is not due. It counts as shown and is not given again.
    std::optional<QString> takeHint(const QString& action);

  private:
    std::set<QString> storedSet(const QString& key) const;
    void store(const QString& key, const std::set<QString>& set);

    std::shared_ptr<UserDefaults> userDefaults_;
    std::set<QString> dismissedHints_;
};

}  // namespace kestrio
