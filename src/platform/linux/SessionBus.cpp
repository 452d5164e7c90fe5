#include "platform/linux/SessionBus.h"

namespace kestrio {

QDBusConnection connectToSessionBus(const QString& address) {
    if (address.isEmpty()) return QDBusConnection::sessionBus();
    return QDBusConnection::connectToBus(address, address);
}

}  // namespace kestrio
