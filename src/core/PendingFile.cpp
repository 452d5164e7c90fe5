#include "core/PendingFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <QRandomGenerator>
#include <algorithm>
#include <cerrno>
#include <cstdio>

namespace kestrio {

namespace {

constexpr int mostNames = 100;
constexpr std::size_t mostAtOnce = std::size_t(1) << 30;

[[noreturn]] void fail() {
    throw SystemError{errno};
}

QByteArray someHiddenName(const QByteArray& folder) {
    return folder + "/.kestrio-" +
           QByteArray::number(QRandomGenerator::global()->generate64(), 36) + ".part";
}

// What file systems answer that have no files without names.
bool hasNoNamelessFiles(int code) {
    return code == EOPNOTSUPP || code == EISDIR || code == EINVAL || code == ENOENT;
}

bool cannotRenameToFree(int code) {
    return code == EINVAL || code == ENOSYS;
}

}  // namespace

PendingFile::PendingFile(QByteArray folder, mode_t mode)
    : folder_(std::move(folder)),
      file_(::open(folder_.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode)) {
    if (file_.isOpen()) return;
    if (!hasNoNamelessFiles(errno)) fail();
    openNamed(mode);
}

PendingFile::~PendingFile() {
    if (!hiddenName_.isEmpty()) ::unlink(hiddenName_.constData());
}

void PendingFile::openNamed(mode_t mode) {
    for (int tries = 0; tries < mostNames; ++tries) {
        const QByteArray name = someHiddenName(folder_);
        file_.reset(
            ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
        if (file_.isOpen()) {
            hiddenName_ = name;
            return;
        }
        if (errno != EEXIST) fail();
    }
    fail();
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
    for (int tries = 0; tries < mostNames; ++tries) {
        const QByteArray name = someHiddenName(folder_);
        if (!linkTo(name)) continue;
        hiddenName_ = name;
        return;
    }
    throw SystemError{EEXIST};
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
