#include "scrolling/stitch/MappedBitmap.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <cstdlib>
#include <memory>

namespace kestrio {

namespace {

struct Mapping {
    void* address = nullptr;
    std::size_t length = 0;
};

void release(void* info) {
    const std::unique_ptr<Mapping> mapping(static_cast<Mapping*>(info));
    ::munmap(mapping->address, mapping->length);
}

int openNamelessFile() {
    // Qt names none where the environment's does not exist, and what follows would lie in the root.
    const QString folder = QDir::tempPath();
    if (folder.isEmpty()) return -1;
    QByteArray path = QFile::encodeName(folder) + "/Kestrio-long-image.XXXXXX";
    const int file = ::mkostemp(path.data(), O_CLOEXEC);
    if (file >= 0) ::unlink(path.constData());
    return file;
}

}  // namespace

QImage makeMappedBitmap(QSize size, QImage::Format format) {
    if (size.isEmpty()) return {};
    const qsizetype stride = qsizetype(size.width()) * 4;
    const auto length = std::size_t(stride) * std::size_t(size.height());
    const int file = openNamelessFile();
    if (file < 0) return {};
    const auto closing = qScopeGuard([file] { ::close(file); });
    // Where the file system cannot reserve, the C library writes every block instead.
    if (::posix_fallocate(file, 0, off_t(length)) != 0) return {};
    void* address = ::mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (address == MAP_FAILED) return {};
    auto mapping = std::make_unique<Mapping>(Mapping{address, length});
    QImage bitmap(static_cast<uchar*>(address), size.width(), size.height(), stride, format,
                  release, mapping.get());
    if (bitmap.isNull()) {
        ::munmap(address, length);
        return {};
    }
    static_cast<void>(mapping.release());  // the bitmap's now
    return bitmap;
}

}  // namespace kestrio
