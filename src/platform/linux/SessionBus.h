#pragma once

#include <QDBusConnection>

namespace kestrio {

/// A connection to the bus at this address, or to the session's where it is empty. Waits for the
/// bus, so that a window's start calls it in the background.
QDBusConnection connectToSessionBus(const QString& address);

}  // namespace kestrio
