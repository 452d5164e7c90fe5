#include "core/RegularFile.h"

#include "core/AtomicFile.h"
#include "core/Descriptor.h"
#include "core/Localisation.h"
#include "core/NativePath.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <QLocale>
#include <cerrno>

namespace kestrio {

namespace {

// A file that shrinks meanwhile gives what is left of it.
QByteArray readWhole(const QString& path, int descriptor, qint64 size) {
    QByteArray bytes;
    bytes.resize(size);
    qint64 done = 0;
    while (done < size) {
        const ssize_t count =
            ::read(descriptor, bytes.data() + done, static_cast<std::size_t>(size - done));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw FileError(path, errno);
        if (count == 0) break;
        done += count;
    }
    bytes.resize(done);
    return bytes;
}

}  // namespace

QByteArray readRegularFile(const QString& path, qint64 limit) {
    // Without O_NONBLOCK a pipe that nobody writes to would hold the thread here.
    const Descriptor file(
        ::open(toNativePath(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0) throw FileError(path, errno);
    if (S_ISDIR(status.st_mode)) throw FileError(path, EISDIR);
    if (!S_ISREG(status.st_mode)) {
        throw FileError(path, Kestrio::tr("it is a device or a pipe, not a file"));
    }
    if (status.st_size > limit) {
        throw FileError(path, Kestrio::tr("it has %1, more than the %2 that can be opened")
                                  .arg(QLocale::c().formattedDataSize(status.st_size, 1),
                                       QLocale::c().formattedDataSize(limit, 0)));
    }
    return readWhole(path, file.number(), status.st_size);
}

}  // namespace kestrio
