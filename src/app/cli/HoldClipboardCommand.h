#pragma once

#include "app/cli/CommandLine.h"

namespace kestrio {

/// "kestrio hold-clipboard", which the program starts itself when it ends, and which takes what it
/// holds from nobody else. Needs a GUI application on a display.
ExitStatus runHoldClipboard(const QStringList& arguments);

}  // namespace kestrio
