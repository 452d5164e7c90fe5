#pragma once

namespace kestrio {

/// Whether Qt will connect to an X server: one is named, and nothing else was chosen.
bool isX11Chosen();

/// Whether the X server of $DISPLAY takes a connection; one that refuses because too many programs
/// are connected is asked again for a few seconds. True for one that is reached over a network,
/// which is not tried.
bool waitForXServer();

}  // namespace kestrio
