#include "platform/linux/x11/SharedSegment.h"

#include <sys/ipc.h>
#include <sys/shm.h>

namespace kestrio {

SharedSegment::SharedSegment(const XcbConnection& connection, std::size_t bytes)
    : connection_(connection) {
    if (!connection.hasExtension(&xcb_shm_id)) return;
    constexpr int ownerOnly = 0600;
    const int segment = shmget(IPC_PRIVATE, bytes, IPC_CREAT | ownerOnly);
    if (segment < 0) return;
    void* memory = shmat(segment, nullptr, 0);
    if (memory != reinterpret_cast<void*>(-1)) {
        memory_ = static_cast<std::byte*>(memory);
        id_ = xcb_generate_id(connection_.handle());
        const XcbReply<xcb_generic_error_t> error(
            xcb_request_check(connection_.handle(),
                              xcb_shm_attach_checked(connection_.handle(), id_,
                                                     static_cast<std::uint32_t>(segment), false)));
        isAttached_ = !error;
    }
    shmctl(segment, IPC_RMID, nullptr);  // gone once both sides let go
}

SharedSegment::~SharedSegment() {
    if (isAttached_) {
        xcb_shm_detach(connection_.handle(), id_);
        xcb_flush(connection_.handle());
    }
    if (memory_) shmdt(memory_);
}

}  // namespace kestrio
