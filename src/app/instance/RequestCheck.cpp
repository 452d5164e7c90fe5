#include "app/instance/RequestCheck.h"

#include "core/FileSystem.h"
#include "core/Localisation.h"
#include "library/export/FileNaming.h"

#include <QFileInfo>

namespace kestrio {

namespace {

// The system would take what stands before a NUL for the whole name.
QString faultOfPath(const QString& path) {
    if (path.contains(QChar::Null))
        return Kestrio::tr("a file name cannot contain a NUL character");
    if (!path.startsWith(u'/')) return Kestrio::tr("\"%1\" is not an absolute path").arg(path);
    return {};
}

QString faultOfName(const QString& output) {
    if (const QString fault = faultOfPath(output); !fault.isEmpty()) return fault;
    if (output.endsWith(u'/') || !formatNamed(QFileInfo(output).suffix())) {
        return Kestrio::tr("\"%1\" does not end in .png, .jpg or .webp").arg(output);
    }
    return {};
}

}  // namespace

bool isDensity(double density) {
    return density > 0 && density <= largestDensity;
}

QString faultOfOutput(const QString& path) {
    if (const QString fault = faultOfName(path); !fault.isEmpty()) return fault;
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

QString faultOf(const InstanceRequest& request) {
    if (!request.file.isEmpty()) {
        if (const QString fault = faultOfPath(request.file); !fault.isEmpty()) return fault;
    }
    if (!isDensity(request.density)) {
        return Kestrio::tr("the density must be above 0 and at most %1").arg(largestDensity);
    }
    if (request.delay < 0 || request.delay > longestDelay) {
        return Kestrio::tr("the delay must be 0 to %1 seconds").arg(longestDelay);
    }
    return request.output.isEmpty() ? QString() : faultOfName(request.output);
}

}  // namespace kestrio
