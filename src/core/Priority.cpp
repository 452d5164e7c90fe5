#include "core/Priority.h"

#include <atomic>

#ifdef __linux__
#include <sys/resource.h>
#endif

namespace kestrio {

namespace {

std::atomic<bool> prefersWindows = false;

}  // namespace

void preferWindows() {
    prefersWindows = true;
}

void stepBackForOthers() {
    if (!prefersWindows) return;
#ifdef __linux__
    // Niceness is a thread's own on Linux. At 10 a thread gets a tenth of a contested core.
    thread_local const bool isBack = setpriority(PRIO_PROCESS, 0, 10) == 0;
    static_cast<void>(isBack);
#endif
}

}  // namespace kestrio
