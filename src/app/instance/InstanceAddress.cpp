#include "app/instance/InstanceAddress.h"

#include "core/FileSystem.h"
#include "core/Localisation.h"
#include "core/NativePath.h"

#include <sys/stat.h>
#include <unistd.h>
#include <QDir>
#include <cerrno>

namespace kestrio {

namespace {

QString folder() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (runtime.startsWith(u'/') && fileKind(runtime) == FileKind::folder) {
        return runtime + QStringLiteral("/kestrio");
    }
    return QDir::tempPath() + QStringLiteral("/kestrio-%1").arg(getuid());
}

// One program a display: two sessions of a user have two.
QString displayKey() {
    QString key = qEnvironmentVariable("DISPLAY");
    if (key.isEmpty()) key = qEnvironmentVariable("WAYLAND_DISPLAY");
    // The screen's number does not make it another display.
    if (const auto dot = key.lastIndexOf(u'.'); dot > key.lastIndexOf(u':')) key.truncate(dot);
    for (QChar& letter : key)
        if (!letter.isLetterOrNumber()) letter = u'_';
    return key;
}

void requireTrusted(const QString& path) {
    struct stat status = {};
    // Not through a link, whose target may change.
    if (::lstat(toNativePath(path).constData(), &status) != 0) return;
    constexpr mode_t others = S_IRWXG | S_IRWXO;
    if (!S_ISDIR(status.st_mode) || status.st_uid != ::getuid() || (status.st_mode & others) != 0) {
        throw UntrustedFolder(path);
    }
}

}  // namespace

QString UntrustedFolder::errorDescription() const {
    return Kestrio::tr(
               "the folder %1 must be a folder of yours that nobody else may enter; remove it, "
               "or set XDG_RUNTIME_DIR to another one")
        .arg(folder_);
}

InstanceAddress InstanceAddress::standard() {
    const QString in = folder();
    ::mkdir(toNativePath(in).constData(), S_IRWXU);
    requireTrusted(in);
    const QString key = displayKey();
    const QString base = in + QStringLiteral("/instance") + key;
    // The folder is part of it: a session with another one is another session.
    return {base + QStringLiteral(".lock"), base + QStringLiteral(".socket"),
            QStringLiteral("kestrio:%1:%2").arg(in, key).toUtf8()};
}

}  // namespace kestrio
