#include "app/cli/InstanceHandover.h"

#include "app/cli/StopSignals.h"
#include "app/instance/InstanceAddress.h"
#include "app/instance/InstanceClient.h"
#include "core/Localisation.h"

namespace kestrio {

namespace {

// Between taking its lock and listening a program loads its libraries.
constexpr std::chrono::milliseconds startingTakes(5000);

bool isInstanceAlive(const InstanceAddress& address) {
    return !InstanceLock(address.lockFile).isHeld();
}

}  // namespace

std::unique_ptr<InstanceLock> takeInstanceLock() {
    auto lock = std::make_unique<InstanceLock>(InstanceAddress::standard().lockFile);
    return lock->isHeld() ? std::move(lock) : nullptr;
}

std::optional<ExitStatus> handOverToInstance(const InstanceRequest& request) {
    const InstanceAddress address = InstanceAddress::standard();
    InstanceClient client;
    if (!client.connectTo(address.socket, std::chrono::milliseconds(0))) {
        if (!isInstanceAlive(address)) return std::nullopt;
        if (!client.connectTo(address.socket, startingTakes)) {
            printError(localised("the running Kestrio does not answer; end it and try again"));
            return ExitStatus::failed;
        }
    }
    const StopSignals signals;
    try {
        return tellReply(runUntilDone(client.ask(request, signals.token())));
    } catch (const Cancelled&) {
        return ExitStatus::cancelled;
    }
}

ExitStatus tellReply(const InstanceReply& reply) {
    if (!reply.path.isEmpty()) printDocument(reply.path.toLocal8Bit() + '\n');
    if (!reply.message.isEmpty()) printError(reply.message);
    return static_cast<ExitStatus>(reply.status);
}

}  // namespace kestrio
