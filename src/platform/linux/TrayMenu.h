#pragma once

#include "platform/StatusItem.h"

class QMenu;

namespace kestrio {

/// Makes a menu show the entries, also one that is open. Those of the same kind as before keep
/// their action: panels on the session bus know entries by a number, and may be asking for them
/// just now. Actions run from the main loop, after the menu has gone.
void fillMenu(QMenu& menu, const StatusMenu& entries);

}  // namespace kestrio
