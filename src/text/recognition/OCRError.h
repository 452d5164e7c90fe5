#pragma once

#include "core/Error.h"

namespace kestrio {

/// Why text of a picture could not be read.
class OCRError : public Error {
  public:
    enum class Case {
        recognitionFailed,
        imageConversionFailed,
        timeout,
        invalidImage,
        noTextFound,
        regionOutOfBounds,
    };

    explicit OCRError(Case which) : which_(which) {}
    /// `reason` is a text for the user.
    static OCRError recognitionFailed(QString reason);

    Case which() const { return which_; }
    /// What recognitionFailed() was given.
    QString reason() const { return reason_; }
    QString errorDescription() const override;

    bool operator==(const OCRError& other) const {
        return which_ == other.which_ && reason_ == other.reason_;
    }

  private:
    Case which_;
    QString reason_;
};

}  // namespace kestrio
