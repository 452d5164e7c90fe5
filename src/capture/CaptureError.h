#pragma once

#include "core/Error.h"

namespace kestrio {

/// Why a capture yielded no picture. Cancelled captures are reported to nobody.
class CaptureError : public Error {
  public:
    enum class Case {
        systemError,
        permissionDenied,
        captureTimeout,
        invalidRegion,
        windowNotFound,
        cancelled,
    };

    explicit CaptureError(Case which) : which_(which) {}
    /// `reason` is a sentence for the user.
    static CaptureError systemError(QString reason);
    /// `obstacle` is what no permission would change, for users; empty where it can be granted.
    static CaptureError permissionDenied(QString obstacle);
    /// A CaptureError as it is, a Cancelled as `cancelled`, everything else wrapped as systemError.
    static CaptureError from(const std::exception& error);

    Case which() const { return which_; }
    QString errorDescription() const override;

    bool operator==(const CaptureError& other) const {
        return which_ == other.which_ && reason_ == other.reason_;
    }

  private:
    Case which_;
    QString reason_;  ///< of a systemError, and of a permission that nobody can grant
};

}  // namespace kestrio
