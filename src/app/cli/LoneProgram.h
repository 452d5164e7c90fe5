#pragma once

#include "app/cli/CommandLine.h"
#include "app/instance/InstanceRequest.h"

namespace kestrio {

/// Carries a request out in this process, without an icon, and lives as long as the windows that it
/// opened. Needs a QApplication on a display.
ExitStatus runAlone(const InstanceRequest& request);

}  // namespace kestrio
