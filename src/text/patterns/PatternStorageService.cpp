#include "text/patterns/PatternStorageService.h"

#include "core/Log.h"

#include <algorithm>

namespace kestrio {

namespace {

const QString patternsKey = QStringLiteral("com.kestrio.customPatterns");
const QString unreadableKey = QStringLiteral("com.kestrio.customPatterns.unreadable");
const QString disabledKey = QStringLiteral("com.kestrio.disabledBuiltInPatterns");

QString textOf(QUuid id) {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

auto findPattern(std::vector<SensitivePattern>& patterns, QUuid id) {
    const auto found = std::ranges::find(patterns, id, &SensitivePattern::id);
    if (found == patterns.end()) throw PatternStorageError::patternNotFound(id);
    return found;
}

}  // namespace

PatternStorageError PatternStorageError::saveFailed(QString reason) {
    return {Case::saveFailed, std::move(reason)};
}

PatternStorageError PatternStorageError::loadFailed(QString reason) {
    return {Case::loadFailed, std::move(reason)};
}

PatternStorageError PatternStorageError::patternNotFound(QUuid id) {
    return {Case::patternNotFound, Kestrio::tr("Pattern not found: %1").arg(textOf(id))};
}

PatternStorageError PatternStorageError::invalidPattern(QString reason) {
    return {Case::invalidPattern, std::move(reason)};
}

std::vector<SensitivePattern> PatternStorageService::loadCustomPatterns() {
    const auto data = userDefaults_->data(patternsKey);
    if (!data) return {};
    try {
        return decodeJsonText<std::vector<SensitivePattern>>(*data);
    } catch (const JsonError& error) {
        logLine(QStringLiteral("PatternStorageService: Failed to decode custom patterns - ") +
                error.errorDescription());
        return {};
    }
}

void PatternStorageService::saveCustomPattern(const SensitivePattern& pattern) {
    if (pattern.isBuiltIn) {
        throw PatternStorageError::invalidPattern(
            Kestrio::tr("Cannot save built-in patterns as custom patterns"));
    }
    auto patterns = loadCustomPatterns();
    if (std::ranges::find(patterns, pattern.id, &SensitivePattern::id) != patterns.end()) {
        throw PatternStorageError::invalidPattern(
            Kestrio::tr("Pattern with ID %1 already exists. Use updateCustomPattern instead.")
                .arg(textOf(pattern.id)));
    }
    patterns.push_back(pattern);
    write(patterns);
}

void PatternStorageService::updateCustomPattern(const SensitivePattern& pattern) {
    if (pattern.isBuiltIn) {
        throw PatternStorageError::invalidPattern(Kestrio::tr("Cannot update built-in patterns"));
    }
    auto patterns = loadCustomPatterns();
    *findPattern(patterns, pattern.id) = pattern;
    write(patterns);
}

void PatternStorageService::deleteCustomPattern(QUuid id) {
    auto patterns = loadCustomPatterns();
    patterns.erase(findPattern(patterns, id));
    write(patterns);
}

void PatternStorageService::write(const std::vector<SensitivePattern>& patterns) {
    QByteArray text;
    try {
        text = encodeJsonText(patterns);
    } catch (const JsonError& error) {
        throw PatternStorageError::saveFailed(
            Kestrio::tr("Failed to encode patterns: %1").arg(error.errorDescription()));
    }
    keepUnreadable();
    userDefaults_->setData(patternsKey, text);
}

void PatternStorageService::keepUnreadable() {
    const auto data = userDefaults_->data(patternsKey);
    if (!data) return;
    try {
        decodeJsonText<std::vector<SensitivePattern>>(*data);
    } catch (const JsonError&) {
        QString key = unreadableKey;
        for (int number = 2; userDefaults_->data(key); ++number)
            key = unreadableKey + QString::number(number);
        userDefaults_->setData(key, *data);
    }
}

std::map<QUuid, bool> PatternStorageService::builtInEnabledStates() {
    const auto disabled = userDefaults_->stringArray(disabledKey).value_or(QStringList());
    std::map<QUuid, bool> states;
    for (const SensitivePattern& pattern : builtInPatterns())
        states[pattern.id] = !disabled.contains(textOf(pattern.id));
    return states;
}

void PatternStorageService::setBuiltInEnabled(QUuid id, bool isEnabled) {
    auto disabled = userDefaults_->stringArray(disabledKey).value_or(QStringList());
    disabled.removeAll(textOf(id));
    if (!isEnabled) disabled.append(textOf(id));
    userDefaults_->setStringArray(disabledKey, disabled);
}

}  // namespace kestrio
