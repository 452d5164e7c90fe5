#pragma once

#include <QStringList>

namespace kestrio {

/// What a process needs before anything else runs: standard streams where the caller closed them,
/// since the next file or connection would take their numbers and be written into; failed writes
/// instead of signals that end the process; one line instead of a dump where memory ends.
void setUpProcess();

/// The arguments of the command line; names of files among them need not be text.
QStringList commandLineArguments(int count, char** arguments);

}  // namespace kestrio
