#pragma once

#include "app/cli/CommandLine.h"

namespace kestrio {

/// "kestrio hold-clipboard FILE", which the program starts itself when it ends. Needs a GUI
/// application on a display.
ExitStatus runHoldClipboard(const QStringList& arguments);

}  // namespace kestrio
