#pragma once

namespace kestrio {

/// Lets other threads come before the calling one while they compete for a core. For threads of
/// background pools, so that windows stay smooth while work goes on; there is no way back.
void stepBackForOthers();

}  // namespace kestrio
