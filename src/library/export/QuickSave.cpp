#include "library/export/QuickSave.h"

#include "library/export/FileNaming.h"

namespace kestrio {

SaveTarget quickSaveTarget(const AppSettings& settings, const QDateTime& now, ExportFormat format) {
    return SaveTarget::newFile(
        settings.defaultSavePath,
        [extension = fileExtension(format), now, pattern = settings.fileNamingPattern](int number) {
            return patternFileName(number, extension, now, pattern);
        });
}

}  // namespace kestrio
