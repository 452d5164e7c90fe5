#pragma once

#include <QDBusConnection>

namespace kestrio {

/// Qt connects to the session bus when the application starts, and waits without a limit for its
/// answer. Where the bus does not answer, this keeps Qt from it for the life of the process.
/// Before the application object exists.
void avoidHangingSessionBus();

/// A connection to the bus at this address, or to the session's where it is empty; not connected
/// where the bus does not answer or is avoided. May wait for a second, so that what must not stall
/// calls it in the background.
QDBusConnection connectToSessionBus(const QString& address = {});

}  // namespace kestrio
