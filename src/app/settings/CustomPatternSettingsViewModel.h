#pragma once

#include "core/Published.h"
#include "text/patterns/PatternMatcher.h"

#include <QObject>

namespace kestrio {

/// What an expression that is being typed is worth.
enum class RegexValidity { empty, invalid, isUnsafe, valid };

/// The patterns of private data as the settings window edits them: switches of those that everybody
/// has, the user's own, and the sheet in which one is made or changed. Changes are stored at once.
/// Main thread.
class CustomPatternSettingsViewModel : public QObject {
    Q_OBJECT
    using Patterns = std::vector<SensitivePattern>;
    using EnabledStates = std::map<QUuid, bool>;
    PUBLISHED(Patterns, builtInPatterns, kestrio::builtInPatterns())
    PUBLISHED(Patterns, customPatterns, {})
    PUBLISHED(EnabledStates, builtInEnabledStates, {})
    PUBLISHED(bool, showAddEditSheet, false)
    /// The sheet changes a pattern rather than making one.
    PUBLISHED(bool, isEditing, false)
    PUBLISHED(QUuid, editingPatternId, {})
    PUBLISHED_WRITABLE(QString, editingName, {})
    PUBLISHED_WRITABLE(QString, editingRegex, {})
    PUBLISHED_WRITABLE(QString, editingDescription, {})
    PUBLISHED(bool, showError, false)
    PUBLISHED(QString, errorMessage, {})

  public:
    explicit CustomPatternSettingsViewModel(
        std::shared_ptr<PatternStorageServiceProtocol> patternStorage, QObject* parent = nullptr);

    const std::vector<ExamplePattern>& examplePatterns() const { return examplePatterns_; }
    RegexValidity editingValidity() const;
    /// It has a name, and what is typed is correct and safe.
    bool canSave() const;

    void setBuiltInEnabled(const QUuid& id, bool isEnabled);
    void setCustomEnabled(const QUuid& id, bool isEnabled);
    /// Opens the sheet: empty, on a pattern of the user's own, or with the fields of an example.
    void startAdding();
    void startEditing(const QUuid& id);
    void useExample(const QUuid& id);
    /// Stores what the sheet holds and closes it; errorMessage says what is in the way.
    void save();
    void closeSheet() { set_showAddEditSheet(false); }
    void remove(const QUuid& id);

  private:
    void openSheet(const QString& name, const QString& regex, const QString& description);
    void store(const SensitivePattern& pattern);
    void reload();
    void fail(const QString& message);
    void clearError();

    std::shared_ptr<PatternStorageServiceProtocol> patternStorage_;
    std::vector<ExamplePattern> examplePatterns_ = kestrio::examplePatterns();
};

}  // namespace kestrio
