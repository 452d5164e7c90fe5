#pragma once

#include "app/cli/CommandLine.h"
#include "app/instance/InstanceLock.h"
#include "app/instance/InstanceReply.h"
#include "app/instance/InstanceRequest.h"

#include <memory>

namespace kestrio {

/// Lets the running program carry out a request, waits for it and says how it went; nothing where
/// none runs. Throws Cancelled after a signal to stop. Needs an application, no GUI.
std::optional<ExitStatus> handOverToInstance(const InstanceRequest& request);

/// The lock of the running program, taken; null where another one has it.
std::unique_ptr<InstanceLock> takeInstanceLock();

/// What a reply means to the caller of a command; prints the path or the failure.
ExitStatus reportReply(const InstanceReply& reply);

}  // namespace kestrio
