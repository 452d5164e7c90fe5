#include "platform/linux/XdgLoginItem.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace kestrio {

namespace {

QString entryPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart/kestrio.desktop");
}

/// Whether a line of the entry gives this key this value.
bool hasLine(const QByteArray& entry, const QByteArray& key, const QByteArray& value) {
    for (const QByteArray& line : entry.split('\n')) {
        const auto equals = line.indexOf('=');
        if (equals < 0) continue;
        if (line.left(equals).trimmed() == key && line.mid(equals + 1).trimmed() == value)
            return true;
    }
    return false;
}

QByteArray entryText() {
    const QString text = QStringLiteral(
        "[Desktop Entry]\n"
        "Type=Application\n"
        "Name=Kestrio\n"
        "Exec=%1\n"
        "Icon=kestrio\n"
        "Terminal=false\n");
    return text.arg(quotedForExec(QCoreApplication::applicationFilePath())).toUtf8();
}

}  // namespace

QString quotedForExec(const QString& path) {
    QString quoted;
    for (const QChar each : path) {
        // Within quotes these four are escaped, and the file's own strings take every backslash
        // twice. A percent sign begins a field code.
        if (each == u'\\')
            quoted += QStringLiteral("\\\\\\\\");
        else if (each == u'"' || each == u'`' || each == u'$')
            quoted += QStringLiteral("\\\\") + each;
        else if (each == u'%')
            quoted += QStringLiteral("%%");
        else
            quoted += each;
    }
    return u'"' + quoted + u'"';
}

bool XdgLoginItem::isRegistered() const {
    QFile file(entryPath());
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray entry = file.readAll();
    return entry.contains("Exec=") && !hasLine(entry, "Hidden", "true") &&
           !hasLine(entry, "X-GNOME-Autostart-enabled", "false");
}

void XdgLoginItem::registerItem() {
    const QString path = entryPath();
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    const QByteArray entry = entryText();
    if (!file.open(QIODevice::WriteOnly) || file.write(entry) != entry.size() || !file.commit())
        throw LoginItemError(file.errorString());
}

void XdgLoginItem::unregisterItem() {
    QFile file(entryPath());
    if (file.exists() && !file.remove()) throw LoginItemError(file.errorString());
}

}  // namespace kestrio
