#include "app/instance/PeerCheck.h"

#include <sys/socket.h>
#include <unistd.h>

namespace kestrio {

bool isPeerOfThisUser(int socket) {
    ucred peer = {};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::getuid();
}

}  // namespace kestrio
