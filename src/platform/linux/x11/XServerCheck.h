#pragma once

namespace kestrio {

/// Whether Qt will connect to an X server: one is named, and nothing else was chosen.
bool isX11Chosen();

/// Whether the X server of $DISPLAY takes a connection; one that is there and refuses, as it does
/// while too many programs are connected, is asked again for a few seconds.
bool waitForXServer();

}  // namespace kestrio
