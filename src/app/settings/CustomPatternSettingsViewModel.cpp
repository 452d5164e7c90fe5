#include "app/settings/CustomPatternSettingsViewModel.h"

#include "text/patterns/RegexSafety.h"

#include <algorithm>

namespace kestrio {

CustomPatternSettingsViewModel::CustomPatternSettingsViewModel(
    std::shared_ptr<PatternStorageServiceProtocol> patternStorage, QObject* parent)
    : QObject(parent), patternStorage_(std::move(patternStorage)) {
    reload();
}

void CustomPatternSettingsViewModel::reload() {
    set_builtInEnabledStates(patternStorage_->builtInEnabledStates());
    set_customPatterns(patternStorage_->loadCustomPatterns());
}

RegexValidity CustomPatternSettingsViewModel::editingValidity() const {
    const QString regex = editingRegex().trimmed();
    if (regex.isEmpty()) return RegexValidity::empty;
    if (!RegularExpression::compile(regex)) return RegexValidity::invalid;
    return isSafeRegex(regex) ? RegexValidity::valid : RegexValidity::isUnsafe;
}

bool CustomPatternSettingsViewModel::canSave() const {
    return !editingName().trimmed().isEmpty() && editingValidity() == RegexValidity::valid;
}

void CustomPatternSettingsViewModel::setBuiltInEnabled(const QUuid& id, bool isEnabled) {
    patternStorage_->setBuiltInEnabled(id, isEnabled);
    reload();
}

void CustomPatternSettingsViewModel::setCustomEnabled(const QUuid& id, bool isEnabled) {
    const auto found = std::ranges::find(customPatterns(), id, &SensitivePattern::id);
    if (found == customPatterns().end()) return;
    SensitivePattern changed = *found;
    changed.isEnabled = isEnabled;
    clearError();
    try {
        patternStorage_->updateCustomPattern(changed);
    } catch (const PatternStorageError& error) {
        fail(Kestrio::tr("Failed to update pattern: %1").arg(error.errorDescription()));
    }
    reload();
}

void CustomPatternSettingsViewModel::openSheet(const QString& name, const QString& regex,
                                               const QString& description) {
    clearError();
    set_editingName(name);
    set_editingRegex(regex);
    set_editingDescription(description);
    set_showAddEditSheet(true);
}

void CustomPatternSettingsViewModel::startAdding() {
    set_isEditing(false);
    set_editingPatternId({});
    openSheet({}, {}, {});
}

void CustomPatternSettingsViewModel::startEditing(const QUuid& id) {
    const auto found = std::ranges::find(customPatterns(), id, &SensitivePattern::id);
    if (found == customPatterns().end()) return;
    set_isEditing(true);
    set_editingPatternId(id);
    openSheet(found->name, found->regex, found->description);
}

void CustomPatternSettingsViewModel::useExample(const QUuid& id) {
    const auto found = std::ranges::find(examplePatterns_, id, &ExamplePattern::id);
    if (found == examplePatterns_.end()) return;
    set_isEditing(false);
    set_editingPatternId({});
    openSheet(found->name, found->regex, found->description);
}

void CustomPatternSettingsViewModel::save() {
    clearError();
    if (editingValidity() != RegexValidity::valid) {
        fail(Kestrio::tr("Please provide a valid and safe regex pattern"));
        return;
    }
    SensitivePattern pattern;
    if (isEditing()) {
        const auto found =
            std::ranges::find(customPatterns(), editingPatternId(), &SensitivePattern::id);
        if (found != customPatterns().end()) pattern = *found;
    }
    pattern.id = isEditing() ? editingPatternId() : QUuid::createUuid();
    pattern.name = editingName().trimmed();
    pattern.regex = editingRegex().trimmed();
    pattern.description = editingDescription().trimmed();
    store(pattern);
}

void CustomPatternSettingsViewModel::store(const SensitivePattern& pattern) {
    try {
        if (isEditing())
            patternStorage_->updateCustomPattern(pattern);
        else
            patternStorage_->saveCustomPattern(pattern);
        closeSheet();
    } catch (const PatternStorageError& error) {
        fail((isEditing() ? Kestrio::tr("Failed to update pattern: %1")
                          : Kestrio::tr("Failed to save pattern: %1"))
                 .arg(error.errorDescription()));
    }
    reload();
}

void CustomPatternSettingsViewModel::remove(const QUuid& id) {
    clearError();
    try {
        patternStorage_->deleteCustomPattern(id);
    } catch (const PatternStorageError& error) {
        fail(Kestrio::tr("Failed to delete pattern: %1").arg(error.errorDescription()));
    }
    reload();
}

void CustomPatternSettingsViewModel::fail(const QString& message) {
    set_errorMessage(message);
    set_showError(true);
}

void CustomPatternSettingsViewModel::clearError() {
    set_showError(false);
    set_errorMessage({});
}

}  // namespace kestrio
