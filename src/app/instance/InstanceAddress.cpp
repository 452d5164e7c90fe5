#include "app/instance/InstanceAddress.h"

#include <QDir>
#include <sys/stat.h>
#include <unistd.h>

namespace kestrio {

namespace {

QString folder() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && QDir(runtime).exists()) return runtime + QStringLiteral("/kestrio");
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

}  // namespace

InstanceAddress InstanceAddress::standard() {
    const QString in = folder();
    ::mkdir(QFile::encodeName(in).constData(), S_IRWXU);
    const QString base = in + QStringLiteral("/instance") + displayKey();
    return {base + QStringLiteral(".lock"), base + QStringLiteral(".socket")};
}

}  // namespace kestrio
