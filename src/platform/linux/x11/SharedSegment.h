#pragma once

#include "platform/linux/x11/XcbConnection.h"

#include <cstddef>

#include <xcb/shm.h>

namespace kestrio {

/// Memory that the X server writes into. It goes with this object, even where the program dies. Of
/// no use once the connection, which outlives it, was opened again.
class SharedSegment {
  public:
    SharedSegment(const XcbConnection& connection, std::size_t bytes);
    ~SharedSegment();

    SharedSegment(const SharedSegment&) = delete;
    SharedSegment& operator=(const SharedSegment&) = delete;

    /// False where the server cannot share memory with this program, as on another machine.
    bool isValid() const { return isAttached_; }
    xcb_shm_seg_t id() const { return id_; }
    const std::byte* bytes() const { return memory_; }

  private:
    const XcbConnection& connection_;
    std::byte* memory_ = nullptr;
    xcb_shm_seg_t id_ = 0;
    bool isAttached_ = false;
};

}  // namespace kestrio
