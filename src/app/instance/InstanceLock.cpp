#include "app/instance/InstanceLock.h"

#include "core/NativePath.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace kestrio {

namespace {

struct flock wholeFile() {
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}

Descriptor openLockFile(const QString& path, int flags) {
    return Descriptor(::open(toNativePath(path).constData(),
                             O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | flags,
                             S_IRUSR | S_IWUSR));
}

bool take(const Descriptor& file) {
    struct flock lock = wholeFile();
    return ::fcntl(file.number(), F_OFD_SETLK, &lock) == 0;
}

}  // namespace

// The file stays at the end: removing it would let two programs hold locks on different files.
InstanceLock::InstanceLock(const InstanceAddress& address)
    : file_(openLockFile(address.lockFile, O_CREAT)) {
    if (file_.isOpen() && !take(file_)) return;
    guard_.emplace(address.guardName);
    isHeld_ = guard_->state() != InstanceGuard::State::taken;
    if (!isHeld_) file_.reset();
}

void InstanceLock::serve(std::function<void()> onAsked) {
    if (guard_) guard_->serve(std::move(onAsked));
}

void InstanceLock::renew(const QString& lockFile) {
    Descriptor file = openLockFile(lockFile, O_CREAT);
    struct stat present = {}, known = {};
    if (!file.isOpen() || ::fstat(file.number(), &present) != 0) return;
    const bool isSame = file_.isOpen() && ::fstat(file_.number(), &known) == 0 &&
                        known.st_ino == present.st_ino && known.st_dev == present.st_dev;
    if (!isSame && take(file)) file_ = std::move(file);
}

bool InstanceLock::isTaken(const InstanceAddress& address) {
    if (InstanceGuard::isTaken(address.guardName)) return true;
    const Descriptor file = openLockFile(address.lockFile, 0);
    struct flock lock = wholeFile();
    return file.isOpen() && ::fcntl(file.number(), F_OFD_GETLK, &lock) == 0 &&
           lock.l_type != F_UNLCK;
}

}  // namespace kestrio
