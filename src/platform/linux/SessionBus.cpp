#include "platform/linux/SessionBus.h"

#include "core/Descriptor.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <algorithm>
#include <chrono>
#include <cstddef>

namespace kestrio {

namespace {

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";
// An address that every client refuses at once.
constexpr const char* nowhere = "unix:path=/dev/null";
// A daemon that is only started by this takes a moment at login.
constexpr std::chrono::milliseconds limit(1000);

bool isSessionBusAvoided = false;

QByteArray sessionAddress() {
    const QByteArray given = qgetenv(addressVariable);
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    return given.isEmpty() && !runtime.isEmpty() ? "unix:path=" + runtime + "/bus" : given;
}

QByteArray valueOf(const QByteArray& address, const QByteArray& key) {
    for (const QByteArray& part : address.mid(address.indexOf(':') + 1).split(',')) {
        if (part.startsWith(key + '='))
            return QByteArray::fromPercentEncoding(part.mid(key.size() + 1));
    }
    return {};
}

// The first of several addresses; nothing where that is no local socket.
std::optional<sockaddr_un> localAddress(const QByteArray& addresses, socklen_t& length) {
    const QByteArray address = addresses.split(';').front();
    const QByteArray path = valueOf(address, "path");
    // An abstract name is marked by a first byte of 0.
    const QByteArray name = path.isEmpty() ? '\0' + valueOf(address, "abstract") : path;
    sockaddr_un local{};
    if (!address.startsWith("unix:") || name.size() < 2 ||
        name.size() >= static_cast<qsizetype>(sizeof local.sun_path)) {
        return std::nullopt;
    }
    local.sun_family = AF_UNIX;
    std::ranges::copy(name, local.sun_path);
    length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + std::size_t(name.size()));
    return local;
}

// What every client says first, so that a daemon that is alive answers "OK".
bool isGreeted(const Descriptor& socket) {
    const QByteArray greeting =
        QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(::getuid()).toHex() + "\r\n";
    if (::send(socket.number(), greeting.constData(), std::size_t(greeting.size()), MSG_NOSIGNAL) !=
        greeting.size()) {
        return false;
    }
    pollfd answer = {socket.number(), POLLIN, 0};
    char byte = 0;
    return ::poll(&answer, 1, static_cast<int>(limit.count())) == 1 &&
           ::recv(socket.number(), &byte, 1, 0) == 1;
}

// Whether a bus daemon answers the first words of a connection. True for addresses that are no
// local sockets, which are not tried.
bool isBusAnswering(const QByteArray& address) {
    socklen_t length = 0;
    const auto local = localAddress(address, length);
    if (!local) return true;
    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    return socket.isOpen() &&
           ::connect(socket.number(), reinterpret_cast<const sockaddr*>(&*local), length) == 0 &&
           isGreeted(socket);
}

}  // namespace

void avoidHangingSessionBus() {
    const QByteArray address = sessionAddress();
    if (address.isEmpty() || isBusAnswering(address)) return;
    isSessionBusAvoided = true;
    qputenv(addressVariable, nowhere);
}

QDBusConnection connectToSessionBus(const QString& address) {
    const bool isSession = address.isEmpty();
    const bool answers = isSession ? !isSessionBusAvoided : isBusAnswering(address.toUtf8());
    if (!answers) return QDBusConnection(QString());
    return isSession ? QDBusConnection::sessionBus()
                     : QDBusConnection::connectToBus(address, address);
}

}  // namespace kestrio
