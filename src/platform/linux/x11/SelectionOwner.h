#pragma once

#include <cstdint>

namespace kestrio {

// Who owns a selection, as the X server itself has it, over Qt's connection. Main thread.

/// Whether Qt runs on an X server at all.
bool hasSelections();

/// The window that owns the selection of that name; 0 where none does, and without an X server.
std::uint32_t ownerOfSelection(const char* selection);

/// Makes the server send Qt an event, and with it its present time. The server refuses selections
/// to who comes with an older time than their last change.
void bringServerTime();

/// Whether Qt's connection has made that window.
bool isOfThisProgram(std::uint32_t window);

}  // namespace kestrio
