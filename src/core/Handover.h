#pragma once

#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif

namespace kestrio {

// Qt's thread pools hand work on under locks that ThreadSanitizer does not see, Qt not being built
// for it. The giver says that it hands over, and the taker that it takes over, under one address;
// without that sanitizer both do nothing.

inline void handOver([[maybe_unused]] void* address) {
#ifdef __SANITIZE_THREAD__
    __tsan_release(address);
#endif
}

inline void takeOver([[maybe_unused]] void* address) {
#ifdef __SANITIZE_THREAD__
    __tsan_acquire(address);
#endif
}

}  // namespace kestrio
