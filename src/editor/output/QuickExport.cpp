#include "editor/output/QuickExport.h"

#include "library/QuickSave.h"

#include <QDir>

namespace kestrio {

Task<SavedFile> quickExport(EditorViewModel& editor, AppSettings settings, const QString& folder) {
    // Nobody is there to ask; what is to be unreadable must not leave by itself.
    if (editor.hidesRedactions()) editor.annotationVM().toggleVisibility();
    if (!folder.isEmpty()) settings.defaultSavePath = folder;
    // On a fresh account it may be missing, and nobody has chosen it.
    QDir().mkpath(settings.defaultSavePath);
    const ExportFormat format = settings.defaultExportFormat;
    return editor.exportImage(quickSavePath(settings, QDateTime::currentDateTime(), format),
                              format);
}

}  // namespace kestrio
