#pragma once

#include "core/Error.h"

namespace kestrio {

/// Every way in which a draft cannot be kept or read.
class DraftError : public Error {
  public:
    enum class Case { noFolder, damaged };

    /// The folder of drafts, or one in it, cannot be made or locked.
    static DraftError noFolder(QString reason) { return {Case::noFolder, std::move(reason)}; }
    static DraftError damaged(QString reason) { return {Case::damaged, std::move(reason)}; }

    Case errorCase() const { return case_; }
    QString errorDescription() const override { return reason_; }

  private:
    DraftError(Case errorCase, QString reason) : case_(errorCase), reason_(std::move(reason)) {}

    Case case_;
    QString reason_;
};

}  // namespace kestrio
