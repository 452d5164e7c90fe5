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

    static ExportError fileWriteFailed(QString path);
    static ExportError unsupportedFormat(ExportFormat format);
    static ExportError renderingFailed() { return ExportError(Case::renderingFailed); }
    static ExportError clipboardFailed() { return ExportError(Case::clipboardFailed); }
    static ExportError invalidFormat() { return ExportError(Case::invalidFormat); }
    static ExportError insufficientDiskSpace() { return ExportError(Case::insufficientDiskSpace); }
    static ExportError userCancelled() { return ExportError(Case::userCancelled); }

    Case errorCase() const { return case_; }
    /// The file that could not be written; empty in the other cases.
    const QString& path() const { return path_; }

    QString errorDescription() const override;

    bool operator==(const ExportError& other) const {
        return case_ == other.case_ && path_ == other.path_ && format_ == other.format_;
    }

  private:
    explicit ExportError(Case errorCase) : case_(errorCase) {}

    Case case_;
    QString path_;
    ExportFormat format_ = ExportFormat::png;
};

}  // namespace kestrio
