#include "app/cli/StopSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace kestrio {

namespace {

int pipeEnds[2] = {-1, -1};

// Only what a signal handler may do: one write, which the event loop picks up.
void onSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(pipeEnds[1], &byte, 1);
}

void listen(void (*handler)(int)) {
    std::signal(SIGINT, handler);
    std::signal(SIGTERM, handler);
}

}  // namespace

StopSignals::StopSignals() {
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) return;
    notifier_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [notifier = notifier_.get(), stop = stop_]() mutable {
                         // The byte stays in the pipe; one stop is enough.
                         notifier->setEnabled(false);
                         stop.request_stop();
                     });
    listen(onSignal);
}

StopSignals::~StopSignals() {
    if (!notifier_) return;
    listen(SIG_DFL);
    notifier_.reset();
    ::close(pipeEnds[0]);
    ::close(pipeEnds[1]);
}

}  // namespace kestrio
