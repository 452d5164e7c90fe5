#pragma once

#include "core/Task.h"
#include "imaging/Image.h"
#include "imaging/codecs/ImageEncoder.h"
#include "library/export/SaveTarget.h"
#include "platform/Pasteboard.h"

namespace kestrio {

/// What became of a picture that was saved.
struct SavedFile {
    QString path;
    qint64 byteCount = 0;
    double encodeMilliseconds = 0;
    double writeMilliseconds = 0;
};

/// The one way out for finished pictures: as files and onto the clipboard. The flows run on the
/// main thread and leave all work to the background; each takes its values by copy.
class PictureExporterProtocol {
  public:
    virtual ~PictureExporterProtocol() = default;

    /// Encodes, then writes. Nothing is written when encoding fails. Throws
    /// ExportError::renderingFailed, fileWriteFailed and userCancelled.
    virtual Task<SavedFile> saveImage(Image image, SaveTarget target, ExportFormat format,
                                      EncodeHooks hooks = {}) = 0;

    /// Encodes, then replaces what is on the clipboard: done when a program asks for it, encoding
    /// would stall both. Throws ExportError::clipboardFailed.
    virtual Task<> copyToClipboard(Image image) = 0;
};

/// On the real encoders, disks and clipboard.
class PictureExporter : public PictureExporterProtocol {
  public:
    explicit PictureExporter(std::shared_ptr<Pasteboard> pasteboard)
        : pasteboard_(std::move(pasteboard)) {}

    Task<SavedFile> saveImage(Image image, SaveTarget target, ExportFormat format,
                              EncodeHooks hooks = {}) override;
    Task<> copyToClipboard(Image image) override;

  private:
    std::shared_ptr<Pasteboard> pasteboard_;
};

}  // namespace kestrio
