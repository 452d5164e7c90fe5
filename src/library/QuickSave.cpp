#include "library/QuickSave.h"

#include "library/FileNaming.h"

namespace kestrio {

QString quickSavePath(const AppSettings& settings, const QDateTime& now, ExportFormat format) {
    const QString extension = fileExtension(format);
    const QString name =
        uniqueFileName(settings.defaultSavePath, extension, now, settings.fileNamingPattern);
    return settings.defaultSavePath + u'/' + name + u'.' + extension;
}

}  // namespace kestrio
