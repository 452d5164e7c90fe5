#pragma once

#include "platform/Pasteboard.h"

#include <functional>

namespace kestrio {

/// Reads from the program that owns a selection of the X server, and decodes what it gives. Waits;
/// not for the main thread. Throws PasteboardError and Cancelled.
PasteboardContents readSelection(const char* selection, PasteboardKinds wanted,
                                 std::function<bool()> isStopped);

}  // namespace kestrio
