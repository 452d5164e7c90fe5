#include "app/instance/InstanceGuard.h"

#include "app/instance/PeerCheck.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <algorithm>
#include <cerrno>
#include <cstddef>

namespace kestrio {

namespace {

// Those who ask before the event loop runs wait in line.
constexpr int askingAtOnce = 128;

struct Address {
    sockaddr_un bytes{};
    socklen_t length = 0;
};

Address addressOf(const QByteArray& name) {
    Address address;
    address.bytes.sun_family = AF_UNIX;
    // The first byte stays 0, which makes it an abstract name.
    const auto room = static_cast<qsizetype>(sizeof(address.bytes.sun_path)) - 1;
    // The end of a long name is what differs.
    const QByteArray kept = name.right(room);
    std::ranges::copy(kept, address.bytes.sun_path + 1);
    address.length =
        static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + std::size_t(kept.size()));
    return address;
}

Descriptor newSocket() {
    return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

}  // namespace

InstanceGuard::InstanceGuard(const QByteArray& name) {
    if (name.isEmpty()) return;
    socket_ = newSocket();
    const Address address = addressOf(name);
    const auto* const generic = reinterpret_cast<const sockaddr*>(&address.bytes);
    if (!socket_.isOpen()) return;
    if (::bind(socket_.number(), generic, address.length) == 0) {
        if (::listen(socket_.number(), askingAtOnce) == 0) state_ = State::held;
    } else if (errno == EADDRINUSE && isTaken(name)) {
        state_ = State::taken;
    }
    if (state_ != State::held) socket_.reset();
}

InstanceGuard::~InstanceGuard() = default;

void InstanceGuard::serve(std::function<void()> onAsked) {
    if (state_ != State::held) return;
    notifier_ = std::make_unique<QSocketNotifier>(socket_.number(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this, asked = std::move(onAsked)] {
                         // Being reached was the answer.
                         {
                             const Descriptor reached(
                                 ::accept4(socket_.number(), nullptr, nullptr, SOCK_CLOEXEC));
                         }
                         asked();
                     });
}

bool InstanceGuard::isTaken(const QByteArray& name) {
    const Descriptor asking = newSocket();
    const Address address = addressOf(name);
    if (name.isEmpty() || !asking.isOpen()) return false;
    if (::connect(asking.number(), reinterpret_cast<const sockaddr*>(&address.bytes),
                  address.length) == 0) {
        return isPeerOfThisUser(asking.number());
    }
    // Many ask at once.
    return errno == EAGAIN;
}

}  // namespace kestrio
