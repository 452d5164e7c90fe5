#include "imaging/RegularFile.h"

#include <QDir>
#include <QFile>
#include <QLocale>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/Localisation.h"
#include "imaging/codecs/ImageLoadError.h"

namespace kestrio {

namespace {

class Descriptor {
  public:
    explicit Descriptor(const QString& path)
        // Without O_NONBLOCK a pipe that nobody writes to would hold the thread here.
        : number_(::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }

  private:
    int number_;
};

[[noreturn]] void refuse(const QString& path, const QString& reason) {
    throw ImageLoadError::unreadable(QDir::toNativeSeparators(path), reason);
}

// A file that shrinks meanwhile gives what is left of it.
QByteArray readWhole(const QString& path, int descriptor, qint64 size) {
    QByteArray bytes;
    bytes.resize(size);
    qint64 done = 0;
    while (done < size) {
        const ssize_t count =
            ::read(descriptor, bytes.data() + done, static_cast<size_t>(size - done));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) refuse(path, qt_error_string(errno));
        if (count == 0) break;
        done += count;
    }
    bytes.resize(done);
    return bytes;
}

}  // namespace

QByteArray readRegularFile(const QString& path, qint64 limit) {
    const Descriptor file(path);
    struct stat status = {};
    if (file.number() < 0 || ::fstat(file.number(), &status) != 0) {
        refuse(path, qt_error_string(errno));
    }
    if (S_ISDIR(status.st_mode)) refuse(path, qt_error_string(EISDIR));
    if (!S_ISREG(status.st_mode)) refuse(path, localised("it is a device or a pipe, not a file"));
    if (status.st_size > limit) {
        refuse(path, localised("it has %1, more than the %2 that can be opened")
                         .arg(QLocale::c().formattedDataSize(status.st_size, 1),
                              QLocale::c().formattedDataSize(limit, 0)));
    }
    return readWhole(path, file.number(), status.st_size);
}

}  // namespace kestrio
