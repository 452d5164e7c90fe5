#pragma once

#include "app/cli/CommandLine.h"

namespace kestrio {

/// "kestrio edit [FILE]" on a picture, or on the clipboard's, handed to the running program;
/// nothing where none runs.
std::optional<ExitStatus> handOverEdit(const QStringList& arguments);
/// The same by this process, which lives until the editor is closed. Needs a display.
ExitStatus runEdit(const QStringList& arguments);

}  // namespace kestrio
