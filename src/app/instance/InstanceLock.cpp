#include "app/instance/InstanceLock.h"

#include <QFile>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace kestrio {

InstanceLock::InstanceLock(const QString& file)
    : descriptor_(::open(QFile::encodeName(file).constData(),
                         O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR)) {
    isHeld_ = descriptor_ >= 0 && ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0;
}

InstanceLock::~InstanceLock() {
    // The file stays: removing it would let two programs hold locks on different files.
    if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace kestrio
