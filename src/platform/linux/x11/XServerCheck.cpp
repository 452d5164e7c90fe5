#include "platform/linux/x11/XServerCheck.h"

#include "core/Descriptor.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <xcb/xcb.h>
#include <QByteArray>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace kestrio {

namespace {

constexpr std::chrono::seconds patience(5);
constexpr std::chrono::milliseconds pause(50);

// A server that is full closes connections that it has let in.
bool isRunning() {
    char* host = nullptr;
    int number = 0;
    if (!xcb_parse_display(nullptr, &host, &number, nullptr)) return false;
    const bool isLocal = *host == 0;
    std::free(host);
    if (!isLocal) return false;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "/tmp/.X11-unix/X%d", number);
    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return ::connect(socket.number(), reinterpret_cast<const sockaddr*>(&address),
                     sizeof address) == 0;
}

bool takesConnection() {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const int fault = xcb_connection_has_error(connection);
    xcb_disconnect(connection);
    return fault == 0;
}

}  // namespace

bool isX11Chosen() {
    const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
    if (!chosen.isEmpty()) return chosen.startsWith("xcb");
    return !qEnvironmentVariableIsEmpty("DISPLAY") &&
           qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

bool waitForXServer() {
    const auto limit = std::chrono::steady_clock::now() + patience;
    while (!takesConnection()) {
        // One that is elsewhere is not asked again.
        if (!isRunning() || std::chrono::steady_clock::now() > limit) return false;
        std::this_thread::sleep_for(pause);
    }
    return true;
}

}  // namespace kestrio
