#pragma once

#include <QString>
#include <exception>

namespace kestrio {

/// Base of every error that operations throw. Each area derives one class with a closed list of
/// cases; errorDescription() is the sentence that a user reads.
class Error : public std::exception {
  public:
    virtual QString errorDescription() const = 0;
    /// The sentence with what more is known, such as the system's reason.
    virtual QString fullDescription() const { return errorDescription(); }

    const char* what() const noexcept override;

  private:
    mutable QByteArray text_;
};

/// One line that says to a user what went wrong, whatever was thrown.
QString describeFailure(const std::exception& error);

}  // namespace kestrio
