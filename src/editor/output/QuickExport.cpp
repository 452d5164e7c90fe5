#include "editor/output/QuickExport.h"

#include "library/export/QuickSave.h"

namespace kestrio {

Task<SavedFile> quickExport(EditorViewModel& editor, AppSettings settings, const QString& folder) {
    // Nobody is there to ask; what is to be unreadable must not leave by itself.
    if (editor.annotationSession().hidesRedactions()) editor.annotationVM().toggleVisibility();
    if (!folder.isEmpty()) settings.defaultSavePath = folder;
    const ExportFormat format = settings.defaultExportFormat;
    return editor.outputModel().exportImage(
        quickSaveTarget(settings, QDateTime::currentDateTime(), format), format);
}

}  // namespace kestrio
