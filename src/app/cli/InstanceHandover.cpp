#include "app/cli/InstanceHandover.h"

#include "app/cli/StopSignals.h"
#include "app/instance/InstanceAddress.h"
#include "app/instance/InstanceClient.h"
#include "core/Localisation.h"

namespace kestrio {

namespace {

// Between taking its lock and listening a program loads its libraries.
constexpr std::chrono::milliseconds startupTimeout(5000);

}  // namespace

std::unique_ptr<InstanceLock> takeInstanceLock() {
    auto lock = std::make_unique<InstanceLock>(InstanceAddress::standard());
    return lock->isHeld() ? std::move(lock) : nullptr;
}

std::optional<ExitStatus> handOverToInstance(const InstanceRequest& request) {
    const InstanceAddress address = InstanceAddress::standard();
    InstanceClient client;
    if (!client.connectTo(address.socket, std::chrono::milliseconds(0))) {
        if (!InstanceLock::isTaken(address)) return std::nullopt;
        if (!client.connectTo(address.socket, startupTimeout)) {
            // It may have ended meanwhile.
            if (!InstanceLock::isTaken(address)) return std::nullopt;
            printError(Kestrio::tr("the running Kestrio does not answer; end it and try again"));
            return ExitStatus::failed;
        }
    }
    const StopSignals signals;
    return reportReply(runUntilDone(client.ask(request, signals.token())));
}

ExitStatus reportReply(const InstanceReply& reply) {
    const bool isPrinted = reply.path.isEmpty() || printPath(reply.path);
    if (!reply.message.isEmpty()) printError(reply.message);
    return isPrinted ? static_cast<ExitStatus>(reply.status) : ExitStatus::failed;
}

}  // namespace kestrio
