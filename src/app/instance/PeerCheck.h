#pragma once

namespace kestrio {

/// Whether a process of this user is at the other end of a connected local socket.
bool isPeerOfThisUser(int socket);

}  // namespace kestrio
