#pragma once

#include "imaging/ExportError.h"
#include "library/export/PictureExporter.h"

namespace kestrio {

/// An exporter that notes what it is given and fails on demand.
class ScriptedExporter : public PictureExporterProtocol {
  public:
    std::optional<ExportError> saveFailure, copyFailure;
    QStringList savedPaths;

    Task<SavedFile> saveImage(Image image, SaveTarget target, ExportFormat, EncodeHooks) override {
        if (saveFailure) throw *saveFailure;
        savedPaths << target.path();
        SavedFile saved;
        saved.path = target.path();
        saved.byteCount = image.pixelSize().width();
        co_return saved;
    }

    Task<> copyToClipboard(Image) override {
        if (copyFailure) throw *copyFailure;
        co_return;
    }
};

}  // namespace kestrio
