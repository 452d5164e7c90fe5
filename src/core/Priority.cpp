#include "core/Priority.h"

#include <atomic>

#ifdef __linux__
#include <sys/resource.h>
#include <unistd.h>
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
    // Niceness is a thread's own on Linux. Five steps down a thread gets a quarter of a core that
    // it shares with the main thread; more would have locks that both take held for too long.
    thread_local const bool isBack =
        setpriority(PRIO_PROCESS, 0, getpriority(PRIO_PROCESS, static_cast<id_t>(getpid())) + 5) ==
        0;
    static_cast<void>(isBack);
#endif
}

}  // namespace kestrio
