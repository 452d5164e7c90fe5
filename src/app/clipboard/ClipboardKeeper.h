#pragma once

#include "platform/Pasteboard.h"

namespace kestrio {

/// Starts a small process of this program that holds what this one has on the clipboard, since under
/// X11 the contents go with the program that copied them. Returns once the other has taken over, or
/// after a few seconds; at once where this program owns nothing. Before the end of the program;
/// runs the event loop meanwhile.
void handOverClipboard(Pasteboard& pasteboard);

/// The other process: puts the contents of `file`, which it deletes, on the clipboard and returns
/// when another program copies something. False where the file cannot be read.
bool holdClipboard(Pasteboard& pasteboard, const QString& file);

}  // namespace kestrio
