#pragma once

#include <QString>
#include <exception>

namespace kestrio {

/// Base of every error that operations throw. Each area derives one class with a closed list of
/// cases; errorDescription() is the sentence that a user reads.
class Error : public std::exception {
  public:
    virtual QString errorDescription() const = 0;

    const char* what() const noexcept override;

  private:
    mutable QByteArray text_;
};

}  // namespace kestrio
