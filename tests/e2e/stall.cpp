// Preloaded into a program: whatever it asks of files below $KESTRIO_STALL hangs for ever, as on a
// network folder whose server is gone.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

namespace {

void stall(const char* path) {
    const char* const below = std::getenv("KESTRIO_STALL");
    if (!below || !path || std::strncmp(path, below, std::strlen(below)) != 0) return;
    for (;;)
        ::pause();
}

// The system's own function of this name.
template <typename Function>
Function* next(Function*, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    stall(path);
    return next(&::open, "open")(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    stall(path);
    return next(&::open64, "open64")(path, flags, mode);
}

int stat(const char* path, struct stat* status) noexcept {
    stall(path);
    int (*const real)(const char*, struct stat*) =
        reinterpret_cast<int (*)(const char*, struct stat*)>(::dlsym(RTLD_NEXT, "stat"));
    return real(path, status);
}

int statx(int folder, const char* path, int flags, unsigned mask, struct statx* status) noexcept {
    stall(path);
    int (*const real)(int, const char*, int, unsigned, struct statx*) =
        reinterpret_cast<int (*)(int, const char*, int, unsigned, struct statx*)>(
            ::dlsym(RTLD_NEXT, "statx"));
    return real(folder, path, flags, mask, status);
}

int access(const char* path, int mode) noexcept {
    stall(path);
    return next(&::access, "access")(path, mode);
}

int mkdir(const char* path, mode_t mode) noexcept {
    stall(path);
    return next(&::mkdir, "mkdir")(path, mode);
}

char* realpath(const char* path, char* resolved) noexcept {
    stall(path);
    return next(&::realpath, "realpath")(path, resolved);
}

}  // extern "C"
