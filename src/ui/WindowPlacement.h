#pragma once

class QWindow;

namespace kestrio {

/// Puts a window in the middle of its display's free area, smaller where that has no room for it.
void centre(QWindow& window);

/// Shows a window before all others and gives it the focus.
void bringToFront(QWindow& window);

}  // namespace kestrio
