#pragma once

#include "app/cli/CommandLine.h"

namespace kestrio {

/// "kestrio": where the program runs already it is brought to notice, else nothing is returned and
/// this process is the one that stays.
std::optional<ExitStatus> activateInstance(const QStringList& arguments);
/// Stays in the tray until the user quits. Needs a QApplication on a display.
ExitStatus runResident(const QStringList& arguments);

}  // namespace kestrio
