#include "core/FileSystem.h"

#include "core/NativePath.h"

#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <memory>

namespace kestrio {

FileKind fileKind(const QString& path) {
    struct stat status = {};
    if (::stat(toNativePath(path).constData(), &status) != 0) return FileKind::missing;
    return S_ISREG(status.st_mode)   ? FileKind::regular
           : S_ISDIR(status.st_mode) ? FileKind::folder
                                     : FileKind::special;
}

bool isSameFile(const QString& a, const QString& b) {
    struct stat first = {};
    struct stat second = {};
    return ::stat(toNativePath(a).constData(), &first) == 0 &&
           ::stat(toNativePath(b).constData(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

bool isWritableFolder(const QString& path) {
    return fileKind(path) == FileKind::folder &&
           ::access(toNativePath(path).constData(), W_OK | X_OK) == 0;
}

QString absolutePath(const QString& path) {
    if (path.startsWith(u'/')) return path;
    const std::unique_ptr<char, decltype(&std::free)> present(::getcwd(nullptr, 0), &std::free);
    return fromNativePath(present ? QByteArrayView(present.get()) : QByteArrayView("/")) + u'/' +
           path;
}

QString folderOf(const QString& path) {
    const qsizetype slash = path.lastIndexOf(u'/');
    return slash < 0 ? QStringLiteral(".") : slash == 0 ? QStringLiteral("/") : path.left(slash);
}

}  // namespace kestrio
