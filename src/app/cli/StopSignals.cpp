#include "app/cli/StopSignals.h"

#include "app/cli/CommandLine.h"

#include <fcntl.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <mutex>
#include <system_error>
#include <thread>

namespace kestrio {

namespace {

// Whoever sends such a signal waits two seconds before the next, harder one.
constexpr std::chrono::milliseconds endLimit(1700);

int pipeEnds[2] = {-1, -1};
std::mutex mutex;             // of `receiver`
QObject* receiver = nullptr;  // of the StopSignals that lives
std::stop_source* stopOf = nullptr;

// Only what a signal handler may do: one write, which a thread waits for.
void onSignal(int) {
    const int before = errno;
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(pipeEnds[1], &byte, 1);
    errno = before;
}

void requestStop() {
    const std::lock_guard lock(mutex);
    if (!receiver) return;
    // Stopping runs code of the flows, which belong to the main thread.
    QMetaObject::invokeMethod(
        receiver,
        [] {
            if (stopOf) stopOf->request_stop();
        },
        Qt::QueuedConnection);
}

// Not on the main loop, which may be busy for long just then.
[[noreturn]] void guardProcess() {
    char byte = 0;
    while (::read(pipeEnds[0], &byte, 1) != 1) {
    }
    requestStop();
    std::this_thread::sleep_for(endLimit);
    std::_Exit(static_cast<int>(ExitStatus::cancelled));
}

bool startGuard() {
    if (::pipe2(pipeEnds, O_CLOEXEC) != 0) return false;
    try {
        std::thread(guardProcess).detach();
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

void listen(void (*handler)(int)) {
    std::signal(SIGINT, handler);
    std::signal(SIGTERM, handler);
}

}  // namespace

StopSignals::StopSignals() {
    // Without the guard a signal ends the process as it does by itself.
    static const bool isGuarded = startGuard();
    if (!isGuarded) return;
    {
        const std::lock_guard lock(mutex);
        receiver = &receiver_;
        stopOf = &stop_;
    }
    listen(onSignal);
}

StopSignals::~StopSignals() {
    const std::lock_guard lock(mutex);
    if (!receiver) return;
    listen(SIG_DFL);
    receiver = nullptr;
    stopOf = nullptr;
}

void endProcessWithin(std::chrono::milliseconds limit, int status) {
    try {
        std::thread([limit, status] {
            std::this_thread::sleep_for(limit);
            std::_Exit(status);
        }).detach();
    } catch (const std::system_error&) {
        // Without a thread to be had nothing can be guarded.
    }
}

}  // namespace kestrio
