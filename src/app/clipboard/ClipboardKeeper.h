#pragma once

#include "platform/Pasteboard.h"

namespace kestrio {

/// Starts a small process of this program that holds what this one has on the clipboard, since
/// under X11 the contents go with the program that copied them. Returns once that has taken over;
/// at once where this program owns nothing. Before the end of the program; runs the event loop
/// meanwhile. Throws PasteboardError::notKept, after a few seconds at most, where the contents will
/// be lost.
void handOverClipboard(Pasteboard& pasteboard);

/// The other process: puts `bytes`, as it has inherited them, on the clipboard, calls `taken` and
/// returns when another program copies something. False where it cannot, which is also where a
/// third program has copied in the meantime.
bool holdClipboard(Pasteboard& pasteboard, const QByteArray& bytes,
                   const std::function<void()>& taken);

}  // namespace kestrio
