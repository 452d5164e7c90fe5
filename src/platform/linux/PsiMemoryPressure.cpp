#include "platform/linux/PsiMemoryPressure.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#include <cstring>

namespace kestrio {

// Microseconds of stall within a window. Without privileges the kernel takes windows only that are
// a multiple of two seconds.
PsiMemoryPressure::PsiMemoryPressure() {
    watch("some 300000 2000000", MemoryPressureLevel::warning);
    watch("full 200000 2000000", MemoryPressureLevel::critical);
}

PsiMemoryPressure::~PsiMemoryPressure() {
    for (Trigger& trigger : triggers_) {
        trigger.notifier.reset();
        close(trigger.file);
    }
}

void PsiMemoryPressure::watch(const char* trigger, MemoryPressureLevel level) {
    const int file = open("/proc/pressure/memory", O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return;
    const auto size = static_cast<ssize_t>(std::strlen(trigger) + 1);
    if (write(file, trigger, static_cast<std::size_t>(size)) != size) {
        close(file);
        return;
    }
    auto notifier = std::make_unique<QSocketNotifier>(file, QSocketNotifier::Exception);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                     [this, file, level, source = notifier.get()] {
                         // A trigger that the kernel has dropped would wake the loop for ever.
                         pollfd state{file, POLLPRI, 0};
                         if (poll(&state, 1, 0) > 0 && (state.revents & POLLERR) != 0) {
                             source->setEnabled(false);
                             return;
                         }
                         announce(level);
                     });
    triggers_.push_back({file, std::move(notifier)});
}

}  // namespace kestrio
