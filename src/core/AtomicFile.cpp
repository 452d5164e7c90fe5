#include "core/AtomicFile.h"

#include "core/NativePath.h"
#include "core/PendingFile.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <cerrno>
#include <cstdlib>
#include <memory>

namespace kestrio {

namespace {

// How long whoever reads a pipe or a device may take nothing.
constexpr int stallMilliseconds = 10'000;
constexpr mode_t everyonesFile = 0666;
constexpr mode_t ownersFile = 0600;
constexpr mode_t everyonesFolder = 0777;
constexpr mode_t ownersFolder = 0700;
constexpr mode_t permissionBits = 07777;

// The file behind a link; a link that leads nowhere is itself what is replaced.
QByteArray resolved(const QByteArray& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr),
                                                           &std::free);
    return real ? QByteArray(real.get()) : path;
}

// Never waits for a reader that does not come.
void writeDirectly(const QString& path, const QByteArray& native, QByteArrayView bytes) {
    const Descriptor file(::open(native.constData(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) throw FileError(path, errno);
    while (!bytes.isEmpty()) {
        pollfd waiting = {file.number(), POLLOUT, 0};
        const int ready = ::poll(&waiting, 1, stallMilliseconds);
        if (ready == 0) throw FileError(path, ETIMEDOUT);
        const ssize_t count =
            ::write(file.number(), bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (count < 0 && errno != EINTR && errno != EAGAIN) throw FileError(path, errno);
        if (count > 0) bytes = bytes.sliced(count);
    }
}

mode_t modeFor(FileAccess access) {
    return access == FileAccess::ownerOnly ? ownersFile : everyonesFile;
}

}  // namespace

FileError::FileError(QString path, int code)
    : path_(std::move(path)), reason_(qt_error_string(code)) {}

QString FileError::errorDescription() const {
    return path_ + QStringLiteral(": ") + reason_;
}

void replaceFile(const QString& path, QByteArrayView bytes, FileAccess access) {
    const QByteArray target = resolved(toNativePath(path));
    struct stat old = {};
    const bool exists = ::stat(target.constData(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) throw FileError(path, EISDIR);
    if (exists && !S_ISREG(old.st_mode)) return writeDirectly(path, target, bytes);
    // Renaming over it would succeed all the same.
    if (exists && ::access(target.constData(), W_OK) != 0) throw FileError(path, errno);
    try {
        PendingFile file(target, modeFor(access));
        file.write(bytes);
        if (exists && access == FileAccess::byUmask) {
            file.setOwnerAndMode(old.st_uid, old.st_gid, old.st_mode & permissionBits);
        }
        file.flush();
        file.renameOver(target);
    } catch (const SystemError& error) {
        throw FileError(path, error.code);
    }
}

QString writeNewFile(const std::function<QString(int)>& pathFor, QByteArrayView bytes,
                     FileAccess access) {
    QString path = pathFor(1);
    try {
        PendingFile file(toNativePath(path), modeFor(access));
        file.write(bytes);
        file.flush();
        for (int number = 1; !file.takeName(toNativePath(path));)
            path = pathFor(++number);
    } catch (const SystemError& error) {
        throw FileError(path, error.code);
    }
    return path;
}

void makeFolders(const QString& path, FileAccess access) {
    const QByteArray native = toNativePath(path);
    const mode_t mode = access == FileAccess::ownerOnly ? ownersFolder : everyonesFolder;
    for (qsizetype end = native.indexOf('/', 1); end >= 0; end = native.indexOf('/', end + 1)) {
        // Which one fails shows at the last.
        ::mkdir(native.first(end).constData(), mode);
    }
    struct stat folder = {};
    if (::mkdir(native.constData(), mode) == 0) return;
    const int code = errno;
    if (::stat(native.constData(), &folder) == 0) {
        if (S_ISDIR(folder.st_mode)) return;
        throw FileError(path, ENOTDIR);
    }
    throw FileError(path, code);
}

}  // namespace kestrio
