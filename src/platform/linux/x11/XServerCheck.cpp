#include "platform/linux/x11/XServerCheck.h"

#include "core/Descriptor.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <xcb/xcb.h>
#include <QByteArray>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <thread>

namespace kestrio {

namespace {

constexpr std::chrono::seconds patience(5);
constexpr std::chrono::milliseconds pause(50);

enum class Answer { accepts, isFull, none };

// Null where the display is elsewhere, reached over a network.
std::optional<sockaddr_un> localServer() {
    char* host = nullptr;
    int number = 0;
    if (!xcb_parse_display(nullptr, &host, &number, nullptr)) return std::nullopt;
    const bool isLocal = *host == 0;
    std::free(host);
    if (!isLocal) return std::nullopt;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "/tmp/.X11-unix/X%d", number);
    return address;
}

// A socket connected to the server by the file, or by the kernel's own name for it, which servers
// in containers have alone.
Descriptor connectTo(const sockaddr_un& address) {
    sockaddr_un abstract = address;
    const std::size_t length = std::strlen(address.sun_path);
    abstract.sun_path[0] = 0;
    std::memcpy(abstract.sun_path + 1, address.sun_path, length);
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const auto reaches = [&](const sockaddr_un& at, std::size_t size) {
        return ::connect(socket.number(), reinterpret_cast<const sockaddr*>(&at),
                         static_cast<socklen_t>(size)) == 0;
    };
    if (!reaches(address, sizeof address) &&
        !reaches(abstract, offsetof(sockaddr_un, sun_path) + 1 + length)) {
        socket.reset();
    }
    return socket;
}

// By the first words of the protocol and not by Xlib, which adds words of its own to a refusal. A
// server that wants a key for its display counts as one that accepts.
Answer askServer(const sockaddr_un& address) {
    const Descriptor socket = connectTo(address);
    if (!socket.isOpen()) return Answer::none;
    // Byte order, the protocol's version 11.0, and no key.
    constexpr char greeting[12] = {'l', 0, 11};
    ::send(socket.number(), greeting, sizeof greeting, MSG_NOSIGNAL);
    pollfd waiting = {socket.number(), POLLIN, 0};
    const auto limit = std::chrono::milliseconds(patience).count();
    char answer[64] = {};
    if (::poll(&waiting, 1, static_cast<int>(limit)) != 1 ||
        ::recv(socket.number(), answer, sizeof answer, 0) <= 0) {
        return Answer::none;
    }
    constexpr int reasonAt = 8;
    const bool isRefused = answer[0] == 0;
    const QByteArrayView reason(answer + reasonAt, sizeof answer - reasonAt);
    return isRefused && reason.startsWith("Maximum number") ? Answer::isFull : Answer::accepts;
}

}  // namespace

bool isX11Chosen() {
    const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
    if (!chosen.isEmpty()) return chosen.startsWith("xcb");
    return !qEnvironmentVariableIsEmpty("DISPLAY") &&
           qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

bool waitForXServer() {
    const auto address = localServer();
    if (!address) return true;
    const auto limit = std::chrono::steady_clock::now() + patience;
    for (;;) {
        const Answer answer = askServer(*address);
        if (answer == Answer::accepts) return true;
        if (answer == Answer::none || std::chrono::steady_clock::now() > limit) return false;
        std::this_thread::sleep_for(pause);
    }
}

}  // namespace kestrio
