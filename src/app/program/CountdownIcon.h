#pragma once

#include <QIcon>

namespace kestrio {

/// The tray's icon while a timed capture counts down: the seconds that are left.
QIcon countdownIcon(int seconds);

}  // namespace kestrio
