#pragma once

#include <QString>

namespace kestrio {

/// Writes "[name] message" as one line. The line goes to standard error: standard output belongs to
/// what a command was asked for.
void logLine(const char* name, const QString& message);

/// Writes one line as it is.
void logLine(const QString& line);

}  // namespace kestrio
