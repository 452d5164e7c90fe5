#include "core/Priority.h"

#ifdef __linux__
#include <sys/resource.h>
#endif

namespace kestrio {

void stepBackForOthers() {
#ifdef __linux__
    // Niceness is a thread's own on Linux. At 10 a thread gets a tenth of a contested core.
    thread_local const bool isBack = setpriority(PRIO_PROCESS, 0, 10) == 0;
    static_cast<void>(isBack);
#endif
}

}  // namespace kestrio
