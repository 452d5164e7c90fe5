#pragma once

#include "core/Error.h"

namespace kestrio {

/// The entry could not be written or removed; the description is the system's reason.
class LoginItemError : public Error {
  public:
    explicit LoginItemError(QString reason) : reason_(std::move(reason)) {}
    QString errorDescription() const override { return reason_; }

  private:
    QString reason_;
};

/// Whether the desktop starts this program when the user logs in. Main thread only.
class LoginItem {
  public:
    virtual ~LoginItem() = default;

    virtual bool isRegistered() const = 0;
    /// Both throw LoginItemError and leave things as they were then.
    virtual void registerItem() = 0;
    virtual void unregisterItem() = 0;
};

}  // namespace kestrio
