#pragma once

#include <QStringList>

namespace kestrio {

/// What a desktop entry's command comes to for one file: the program and its arguments. `name` is
/// the entry's, for commands that ask for it. A command that takes no file gets it as its last
/// argument. Empty for a command that is quoted wrongly.
QStringList commandFor(const QString& exec, const QString& file, const QString& name);

}  // namespace kestrio
