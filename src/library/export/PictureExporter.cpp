#include "library/export/PictureExporter.h"

#include "core/Stopwatch.h"
#include "imaging/ExportError.h"

namespace kestrio {

Task<SavedFile> PictureExporter::saveImage(Image image, SaveTarget target, ExportFormat format,
                                           EncodeHooks hooks) {
    SavedFile saved;
    Stopwatch stopwatch;
    auto encode = [image = std::move(image), format, hooks] {
        return encodeImage(image.bitmap(), format, hooks);
    };
    const auto encoding = runInBackground(std::move(encode));
    const QByteArray bytes = co_await encoding;
    saved.byteCount = bytes.size();
    saved.encodeMilliseconds = stopwatch.lap();
    auto writing =
        runOnStorage([target, bytes] { return target.write(bytes); }, writeLimit, hooks.stop);
    try {
        saved.path = co_await writing;
    } catch (const StorageTimeout& error) {
        throw ExportError::fileWriteFailed(target.path(), error.errorDescription());
    }
    saved.writeMilliseconds = stopwatch.lap();
    co_return saved;
}

Task<> PictureExporter::copyToClipboard(Image image) {
    const auto pasteboard = pasteboard_;
    auto work = [bitmap = image.bitmap()] { return encodeImage(bitmap, ExportFormat::png, {}); };
    const auto encoded = runInBackground(std::move(work));
    const QByteArray png = co_await encoded;
    auto writing = writeImagePatiently(pasteboard, image.bitmap(), png);
    const bool isWritten = co_await writing;
    if (!isWritten) throw ExportError::clipboardFailed();
}

}  // namespace kestrio
