#include "app/instance/verbs/PathCheck.h"

#include "core/FileSystem.h"
#include "core/Localisation.h"
#include "library/export/FileNaming.h"

#include <QFileInfo>

namespace kestrio {

// The system would take what stands before a NUL for the whole name.
QString faultOfPath(const QString& path) {
    if (path.contains(QChar::Null))
        return Kestrio::tr("a file name cannot contain a NUL character");
    if (!path.startsWith(u'/')) return Kestrio::tr("\"%1\" is not an absolute path").arg(path);
    return {};
}

QString faultOfOutputName(const QString& path) {
    if (QString fault = faultOfPath(path); !fault.isEmpty()) return fault;
    if (path.endsWith(u'/') || !formatNamed(QFileInfo(path).suffix())) {
        return Kestrio::tr("\"%1\" does not end in .png, .jpg or .webp").arg(path);
    }
    return {};
}

QString faultOfOutput(const QString& path) {
    if (QString fault = faultOfOutputName(path); !fault.isEmpty()) return fault;
    const FileKind kind = fileKind(path);
    if (kind == FileKind::folder) return Kestrio::tr("\"%1\" is a folder").arg(path);
    if (kind == FileKind::special) {
        return Kestrio::tr("\"%1\" is a device or a pipe, not a file").arg(path);
    }
    if (fileKind(folderOf(path)) != FileKind::folder) {
        return Kestrio::tr("the folder of \"%1\" does not exist").arg(path);
    }
    if (!isWritableFolder(folderOf(path))) {
        return Kestrio::tr("the folder of \"%1\" cannot be written to").arg(path);
    }
    return {};
}

}  // namespace kestrio
