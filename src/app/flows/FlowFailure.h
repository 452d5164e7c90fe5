#pragma once

#include "app/flows/ExitStatus.h"
#include "core/Error.h"

namespace kestrio {

/// Why a flow, such as a capture, yielded nothing, in the terms of those who are told of it. Areas
/// throw errors of their own; only here are these interpreted, so that an alert, the exit status of
/// a command and the answer on the session bus say the same.
class FlowFailure {
  public:
    enum class Case {
        cancelled,         ///< by the user or a caller; the user is told nothing
        permissionDenied,  ///< to read the screen; the user is shown where to grant it
        alert,             ///< the user reads title and text
    };

    /// `title` heads the alert where the error's area has no title of its own; flows that show none
    /// leave it out.
    static FlowFailure from(const std::exception& error, const QString& title = {});

    Case which() const { return which_; }
    bool isCancelled() const { return which_ == Case::cancelled; }
    /// The user has been told already.
    bool isReported() const { return isReported_; }
    const QString& title() const { return title_; }
    /// What the alert says below its title.
    const QString& text() const { return text_; }
    /// One line for whoever called the program; empty for a cancelled flow.
    const QString& reason() const { return reason_; }
    ExitStatus exitStatus() const;

    bool operator==(const FlowFailure&) const = default;

  private:
    FlowFailure() = default;

    Case which_ = Case::cancelled;
    QString title_;
    QString text_;
    QString reason_;
    bool isReported_ = false;
};

}  // namespace kestrio
