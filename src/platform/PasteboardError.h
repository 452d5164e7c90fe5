#pragma once

#include "core/Error.h"

namespace kestrio {

/// Why the clipboard cannot be read, or what is on it not be kept.
class PasteboardError : public Error {
  public:
    enum class Case {
        noConnection,  ///< the display takes no further connection
        notAnswering,  ///< the program that copied is silent
        tooLarge,
        notKept,  ///< no process could be started that outlives this one
    };

    /// `reason` is what the system said; may be empty.
    explicit PasteboardError(Case which, QString reason = {})
        : which_(which), reason_(std::move(reason)) {}
    Case which() const { return which_; }
    QString errorDescription() const override;
    QString fullDescription() const override;

  private:
    Case which_;
    QString reason_;
};

}  // namespace kestrio
