#pragma once

#include "core/Error.h"

#include <stop_token>

namespace kestrio {

/// Thrown by a flow that was asked to stop. Callers stay silent about it.
class Cancelled : public Error {
  public:
    QString errorDescription() const override { return QStringLiteral("Cancelled"); }
};

/// Throws Cancelled once a stop was asked for.
inline void throwIfStopped(const std::stop_token& stop) {
    if (stop.stop_requested()) throw Cancelled();
}

}  // namespace kestrio
