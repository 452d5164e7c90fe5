#pragma once

#include "app/cli/CommandLine.h"

namespace kestrio {

/// "kestrio capture region|window|display", handed to the running program; nothing where none runs.
std::optional<ExitStatus> handOverCapture(const QStringList& arguments);
/// The same by this process, which then lives as long as the windows that the capture opened.
ExitStatus runCapture(const QStringList& arguments);

}  // namespace kestrio
