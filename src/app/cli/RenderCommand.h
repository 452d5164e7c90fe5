#pragma once

#include "app/cli/CommandLine.h"

namespace kestrio {

/// "kestrio render INPUT... -o OUTPUT [style options]".
ExitStatus runRender(const QStringList& arguments);

}  // namespace kestrio
