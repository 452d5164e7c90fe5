#include "core/PendingFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <QHashFunctions>
#include <algorithm>
#include <cerrno>
#include <cstdio>

namespace kestrio {

namespace {

// More writers of one file than that at the same time are a fault.
constexpr int mostNames = 1000;
constexpr std::size_t mostAtOnce = std::size_t(1) << 30;

[[noreturn]] void fail() {
    throw SystemError{errno};
}

QByteArray folderOf(const QByteArray& path) {
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : path.first(slash);
}

// Locked as long as its writer lives, so that others know what nobody writes any more.
bool lock(int file) {
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    return ::fcntl(file, F_OFD_SETLK, &whole) == 0;
}

// False where somebody is writing the file, or has just taken its name.
bool removeAbandoned(const QByteArray& path) {
    const Descriptor file(::open(path.constData(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat locked = {}, present = {};
    if (!file.isOpen() || !lock(file.number()) || ::fstat(file.number(), &locked) != 0 ||
        ::lstat(path.constData(), &present) != 0) {
        return false;
    }
    // Only who holds the lock of a file takes its name away.
    return locked.st_ino == present.st_ino && locked.st_dev == present.st_dev &&
           ::unlink(path.constData()) == 0;
}

// What file systems answer that have no files without names.
bool hasNoNamelessFiles(int code) {
    return code == EOPNOTSUPP || code == EISDIR || code == EINVAL || code == ENOENT;
}

bool cannotRenameToFree(int code) {
    return code == EINVAL || code == ENOSYS;
}

}  // namespace

PendingFile::PendingFile(const QByteArray& target, mode_t mode)
    : folder_(folderOf(target)),
      hiddenStem_(folder_ + "/.kestrio-" + QByteArray::number(qHash(target), 36)),
      file_(::open(folder_.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode)) {
    if (!file_.isOpen()) {
        if (!hasNoNamelessFiles(errno)) fail();
        openHidden(mode);
    }
    lock(file_.number());
}

template <typename Take>
void PendingFile::takeHiddenName(Take take) {
    for (int number = 1; number <= mostNames; ++number) {
        const QByteArray name = hiddenStem_ + '-' + QByteArray::number(number) + ".part";
        if (take(name) || (removeAbandoned(name) && take(name))) {
            hiddenName_ = name;
            return;
        }
    }
    throw SystemError{EEXIST};
}

PendingFile::~PendingFile() {
    if (!hiddenName_.isEmpty()) ::unlink(hiddenName_.constData());
}

void PendingFile::openHidden(mode_t mode) {
    takeHiddenName([&](const QByteArray& name) {
        file_.reset(
            ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
        if (!file_.isOpen() && errno != EEXIST) fail();
        return file_.isOpen();
    });
}

void PendingFile::write(QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const std::size_t part = std::min(static_cast<std::size_t>(bytes.size()), mostAtOnce);
        const ssize_t count = ::write(file_.number(), bytes.data(), part);
        if (count < 0 && errno != EINTR) fail();
        if (count > 0) bytes = bytes.sliced(count);
    }
}

void PendingFile::setOwnerAndMode(uid_t owner, gid_t group, mode_t mode) {
    [[maybe_unused]] const int isOwned = ::fchown(file_.number(), owner, group);
    // After the owner, whose change takes special bits away.
    ::fchmod(file_.number(), mode);
}

void PendingFile::flush() {
    while (::fsync(file_.number()) != 0) {
        // Some file systems have nothing to flush.
        if (errno == EINVAL || errno == EROFS) return;
        if (errno != EINTR) fail();
    }
}

bool PendingFile::takeName(const QByteArray& path) {
    const bool isTaken = hiddenName_.isEmpty() ? linkTo(path) : renameToFree(path);
    if (isTaken) flushFolder();
    return isTaken;
}

void PendingFile::renameOver(const QByteArray& path) {
    if (hiddenName_.isEmpty()) linkHidden();
    if (::rename(hiddenName_.constData(), path.constData()) != 0) fail();
    hiddenName_.clear();
    flushFolder();
}

void PendingFile::linkHidden() {
    takeHiddenName([this](const QByteArray& name) { return linkTo(name); });
}

bool PendingFile::linkTo(const QByteArray& path) {
    const QByteArray own = "/proc/self/fd/" + QByteArray::number(file_.number());
    if (::linkat(AT_FDCWD, own.constData(), AT_FDCWD, path.constData(), AT_SYMLINK_FOLLOW) == 0) {
        return true;
    }
    if (errno != EEXIST) fail();
    return false;
}

bool PendingFile::renameToFree(const QByteArray& path) {
    const char* const name = hiddenName_.constData();
    int result = ::renameat2(AT_FDCWD, name, AT_FDCWD, path.constData(), RENAME_NOREPLACE);
    if (result != 0 && cannotRenameToFree(errno)) {
        // Reserved first: a plain renaming would replace what is there.
        const Descriptor reserved(::open(path.constData(),
                                         O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                         S_IRUSR | S_IWUSR));
        if (!reserved.isOpen()) {
            if (errno == EEXIST) return false;
            fail();
        }
        result = ::rename(name, path.constData());
        if (result != 0) {
            const int code = errno;
            ::unlink(path.constData());
            throw SystemError{code};
        }
    }
    if (result != 0) {
        if (errno == EEXIST) return false;
        fail();
    }
    hiddenName_.clear();
    return true;
}

// Else a power cut may take the name away again. Not every file system can.
void PendingFile::flushFolder() const {
    const Descriptor folder(::open(folder_.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen()) ::fsync(folder.number());
}

}  // namespace kestrio
