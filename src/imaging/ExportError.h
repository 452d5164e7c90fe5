#pragma once

#include "core/Error.h"
#include "imaging/ExportFormat.h"

namespace kestrio {

/// Every failure on the way from a style to a file or to the clipboard.
class ExportError : public Error {
  public:
    enum class Case {
        fileWriteFailed,
        unsupportedFormat,
        renderingFailed,
        clipboardFailed,
        invalidFormat,
        insufficientDiskSpace,
        userCancelled,
    };

    /// `reason` is what the system said, such as "No space left on device".
    static ExportError fileWriteFailed(QString path, QString reason = {});
    static ExportError unsupportedFormat(ExportFormat format);
    /// `reason` adds to the fact that it failed, for users; may be empty.
    static ExportError renderingFailed(QString reason = {});
    static ExportError clipboardFailed() { return ExportError(Case::clipboardFailed); }
    static ExportError invalidFormat() { return ExportError(Case::invalidFormat); }
    static ExportError insufficientDiskSpace() { return ExportError(Case::insufficientDiskSpace); }
    static ExportError userCancelled() { return ExportError(Case::userCancelled); }

    Case errorCase() const { return case_; }
    /// The file that could not be written; empty in the other cases.
    const QString& path() const { return path_; }
    /// What more is known about the failure; may be empty.
    const QString& reason() const { return reason_; }

    QString errorDescription() const override;
    QString fullDescription() const override;

    bool operator==(const ExportError& other) const {
        return case_ == other.case_ && path_ == other.path_ && format_ == other.format_;
    }

  private:
    explicit ExportError(Case errorCase) : case_(errorCase) {}

    Case case_;
    QString path_;
    QString reason_;
    ExportFormat format_ = ExportFormat::png;
};

}  // namespace kestrio
