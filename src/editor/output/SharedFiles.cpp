#include "editor/output/SharedFiles.h"

#include <QDateTime>
#include <QDir>
#include <QStandardPaths>

namespace kestrio {

namespace {

constexpr int keptDays = 7;
constexpr qsizetype longestName = 80;  // of letters; file systems take 255 bytes

QString fileNameFrom(const QString& name) {
    QString safe = name.left(longestName).trimmed();
    for (QChar& letter : safe)
        if (letter == u'/' || letter.category() == QChar::Other_Control) letter = u'-';
    while (safe.startsWith(u'.'))
        safe.remove(0, 1);
    return safe.isEmpty() ? QStringLiteral("Picture") : safe;
}

void removeOld(const QDir& folder) {
    const QDateTime oldest = QDateTime::currentDateTime().addDays(-keptDays);
    for (const QFileInfo& each : folder.entryInfoList(QDir::Files))
        if (each.lastModified() < oldest) QFile::remove(each.filePath());
}

}  // namespace

QString newSharedFile(const QString& name, const QString& suffix) {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                      QStringLiteral("/kestrio/shared"));
    if (!folder.mkpath(QStringLiteral("."))) return {};
    // They are the user's alone.
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    removeOld(folder);
    const QString stem = fileNameFrom(name);
    QString path = folder.filePath(stem + u'.' + suffix);
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = folder.filePath(QStringLiteral("%1 %2.%3").arg(stem).arg(number).arg(suffix));
    return path;
}

}  // namespace kestrio
