#pragma once

namespace kestrio {

/// From now on background work lets other threads come first where they compete for a core. Called
/// by what shows windows, so that they stay smooth; what only renders takes what it can get.
void preferWindows();

/// Called by threads of background pools before they work: does what preferWindows() asked for,
/// once a thread; there is no way back.
void stepBackForOthers();

}  // namespace kestrio
