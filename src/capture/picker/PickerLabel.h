#pragma once

#include "platform/WindowList.h"

#include <QFont>

namespace kestrio {

/// The owner and the title of a window, each cut short where the two would not fit `width` points.
QString pickerLabel(const WindowInfo& window, const QFont& font, double width);

}  // namespace kestrio
