#include "library/drafts/FolderLock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>

namespace kestrio {

namespace {

/// Its holder may have removed the file between our opening and locking it.
bool isStillThere(int descriptor, const QByteArray& path) {
    struct stat held = {}, found = {};
    return ::fstat(descriptor, &held) == 0 && ::lstat(path.constData(), &found) == 0 &&
           held.st_dev == found.st_dev && held.st_ino == found.st_ino;
}

}  // namespace

std::unique_ptr<FolderLock> FolderLock::take(const QString& folder) {
    const QByteArray path = QFile::encodeName(folder + u'/' + QLatin1String(fileName));
    const int descriptor =
        ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (descriptor < 0) return nullptr;
    std::unique_ptr<FolderLock> lock(new FolderLock(descriptor));
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    if (::fcntl(descriptor, F_OFD_SETLK, &whole) != 0) return nullptr;
    if (isStillThere(descriptor, path)) return lock;
    errno = ENOENT;
    return nullptr;
}

FolderLock::~FolderLock() {
    const int reason = errno;
    ::close(descriptor_);
    errno = reason;
}

}  // namespace kestrio
