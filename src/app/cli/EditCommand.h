#pragma once

#include "app/cli/CommandLine.h"

namespace kestrio {

/// "kestrio edit [FILE]": opens the editor window on a picture, or on the clipboard's, and runs
/// until it is closed. Needs a display.
ExitStatus runEdit(const QStringList& arguments);

}  // namespace kestrio
