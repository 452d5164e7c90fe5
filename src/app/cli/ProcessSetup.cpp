#include "app/cli/ProcessSetup.h"

#include "app/cli/CommandLine.h"
#include "core/NativePath.h"

#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <system_error>

namespace kestrio {

namespace {

void openStandardStreams() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        // The lowest free number is the one that was found closed.
        if (::fcntl(stream, F_GETFD) < 0 && ::open("/dev/null", O_RDWR) != stream) {
            std::_Exit(static_cast<int>(ExitStatus::failed));
        }
    }
}

const char* reasonToEnd() noexcept {
    try {
        if (const auto failure = std::current_exception()) std::rethrow_exception(failure);
    } catch (const std::bad_alloc&) {
        return "there is not enough memory";
    } catch (const std::system_error& error) {
        if (error.code() == std::errc::resource_unavailable_try_again) {
            return "there is not enough memory for another thread";
        }
    } catch (...) {
        return "an unexpected failure";
    }
    return "an unexpected failure";
}

// Nothing of what may need memory again.
[[noreturn]] void endWithReason() {
    std::fprintf(stderr, "kestrio: %s\n", reasonToEnd());
    std::_Exit(static_cast<int>(ExitStatus::failed));
}

}  // namespace

void setUpProcess() {
    openStandardStreams();
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    std::set_terminate(endWithReason);
    // Of the allocator's arenas only the first one gives memory back that lies free at its end;
    // with one for each thread, some pictures' worth stayed for good.
    mallopt(M_ARENA_MAX, 1);
}

QStringList commandLineArguments(int count, char** arguments) {
    QStringList list;
    for (int i = 1; i < count; ++i)
        list << fromNativePath(arguments[i]);
    return list;
}

}  // namespace kestrio
