#pragma once

#include "core/Error.h"
#include "core/UserDefaults.h"
#include "text/patterns/SensitivePattern.h"

#include <map>
#include <memory>

namespace kestrio {

/// Why patterns of the user's own could not be kept.
class PatternStorageError : public Error {
  public:
    enum class Case { saveFailed, loadFailed, patternNotFound, invalidPattern };

    static PatternStorageError saveFailed(QString reason);
    static PatternStorageError loadFailed(QString reason);
    static PatternStorageError patternNotFound(QUuid id);
    static PatternStorageError invalidPattern(QString reason);

    Case errorCase() const { return case_; }
    QString errorDescription() const override { return description_; }

  private:
    PatternStorageError(Case errorCase, QString description)
        : case_(errorCase), description_(std::move(description)) {}

    Case case_;
    QString description_;
};

/// Keeps the user's own patterns, and which of those that everybody has are switched on. Main
/// thread.
class PatternStorageServiceProtocol {
  public:
    virtual ~PatternStorageServiceProtocol() = default;

    /// In the order in which they were saved. Empty where what is stored cannot be read.
    virtual std::vector<SensitivePattern> loadCustomPatterns() = 0;
    /// These three throw PatternStorageError.
    virtual void saveCustomPattern(const SensitivePattern& pattern) = 0;
    virtual void updateCustomPattern(const SensitivePattern& pattern) = 0;
    virtual void deleteCustomPattern(QUuid id) = 0;

    /// One entry for each pattern that everybody has.
    virtual std::map<QUuid, bool> builtInEnabledStates() = 0;
    virtual void setBuiltInEnabled(QUuid id, bool isEnabled) = 0;
};

/// Keeps them as one JSON list at "com.kestrio.customPatterns". Where that cannot be read, it is
/// put aside under a key beside it before anything is written over it.
class PatternStorageService : public PatternStorageServiceProtocol {
  public:
    explicit PatternStorageService(std::shared_ptr<UserDefaults> userDefaults)
        : userDefaults_(std::move(userDefaults)) {}

    std::vector<SensitivePattern> loadCustomPatterns() override;
    void saveCustomPattern(const SensitivePattern& pattern) override;
    void updateCustomPattern(const SensitivePattern& pattern) override;
    void deleteCustomPattern(QUuid id) override;
    std::map<QUuid, bool> builtInEnabledStates() override;
    void setBuiltInEnabled(QUuid id, bool isEnabled) override;

  private:
    void write(const std::vector<SensitivePattern>& patterns);
    void keepUnreadable();

    std::shared_ptr<UserDefaults> userDefaults_;
};

}  // namespace kestrio
