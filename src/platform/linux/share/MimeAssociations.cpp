#include "platform/linux/share/MimeAssociations.h"

#include <QDir>
#include <QFileInfo>

namespace kestrio {

namespace {

const QString applications = QStringLiteral("/applications");

QStringList folders(const char* own, const QString& ownDefault, const char* shared,
                    const QString& sharedDefault) {
    const auto read = [](const char* name, const QString& otherwise) {
        const QString value = qEnvironmentVariable(name);
        return value.isEmpty() ? otherwise : value;
    };
    return QStringList(read(own, ownDefault)) +
           read(shared, sharedDefault).split(u':', Qt::SkipEmptyParts);
}

QStringList dataFolders() {
    return folders("XDG_DATA_HOME", QDir::homePath() + QStringLiteral("/.local/share"),
                   "XDG_DATA_DIRS", QStringLiteral("/usr/local/share:/usr/share"));
}

QStringList configFolders() {
    return folders("XDG_CONFIG_HOME", QDir::homePath() + QStringLiteral("/.config"),
                   "XDG_CONFIG_DIRS", QStringLiteral("/etc/xdg"));
}

/// The files that hold choices, from the most to the least important.
std::vector<DesktopFile> associationFiles() {
    QStringList names;
    for (const QString& desktop :
         qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts))
        names << desktop.toLower() + QStringLiteral("-mimeapps.list");
    names << QStringLiteral("mimeapps.list");
    QStringList places = configFolders();
    for (const QString& folder : dataFolders())
        places << folder + applications;
    std::vector<DesktopFile> files;
    for (const QString& place : places)
        for (const QString& name : names)
            if (auto file = DesktopFile::read(place + u'/' + name); !file.isEmpty()) {
                files.push_back(std::move(file));
            }
    return files;
}

/// What the entries of a folder say of themselves, from its cache where it has one.
QStringList declaredIn(const QString& folder, const QString& mimeType) {
    const DesktopFile cache = DesktopFile::read(folder + QStringLiteral("/mimeinfo.cache"));
    if (!cache.isEmpty()) return cache.list(QStringLiteral("MIME Cache"), mimeType);
    QStringList found;
    for (const QString& name : QDir(folder).entryList({QStringLiteral("*.desktop")}, QDir::Files)) {
        const DesktopFile entry = DesktopFile::read(folder + u'/' + name);
        if (entry.list(QStringLiteral("Desktop Entry"), QStringLiteral("MimeType"))
                .contains(mimeType))
            found << name;
    }
    return found;
}

}  // namespace

QStringList programIdsFor(const QString& mimeType) {
    QStringList ids, removed;
    const auto add = [&](const QStringList& more) {
        for (const QString& id : more)
            if (!ids.contains(id) && !removed.contains(id)) ids << id;
    };
    const std::vector<DesktopFile> files = associationFiles();
    for (const DesktopFile& file : files)
        add(file.list(QStringLiteral("Default Applications"), mimeType));
    for (const DesktopFile& file : files) {
        add(file.list(QStringLiteral("Added Associations"), mimeType));
        removed += file.list(QStringLiteral("Removed Associations"), mimeType);
    }
    for (const QString& folder : dataFolders())
        add(declaredIn(folder + applications, mimeType));
    return ids;
}

DesktopFile desktopEntry(const QString& id) {
    // An id never leads out of its folder.
    if (id.contains(u'/')) return {};
    for (const QString& folder : dataFolders()) {
        // A dash may stand for a folder below.
        const QString path = folder + applications + u'/';
        QString nested = id;
        const qsizetype dash = nested.indexOf(u'-');
        if (dash > 0) nested[dash] = u'/';
        for (const QString& name : {id, nested})
            if (QFileInfo::exists(path + name)) return DesktopFile::read(path + name);
    }
    return {};
}

}  // namespace kestrio
