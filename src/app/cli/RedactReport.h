#pragma once

#include "app/cli/RedactRun.h"

namespace kestrio {

/// A line for each finding: its kind, its rectangle and its text, as a terminal may show them.
QByteArray plainTextOf(const RedactResult& result);

/// The same as a document, with where the covered picture is and its size. "rect" is left, top,
/// width and height in whole pixels from the top left: all that has to be covered.
QByteArray jsonOf(const RedactResult& result);

}  // namespace kestrio
