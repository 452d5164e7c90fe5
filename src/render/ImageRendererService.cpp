#include "render/ImageRendererService.h"

#include "core/Stopwatch.h"
#include "imaging/ExportError.h"
#include "render/backdrop/OverlayPainter.h"

namespace kestrio {

ImageRendererService::ImageRendererService(
    std::shared_ptr<WatermarkServiceProtocol> watermarkService,
    std::shared_ptr<Pasteboard> pasteboard)
    : composer_(std::make_shared<ImageComposer>(std::move(watermarkService))),
      pasteboard_(std::move(pasteboard)) {}

Task<Image> ImageRendererService::renderComposite(CompositeRequest request, std::stop_token stop) {
    // The composer is shared with the work, which may outlive this service.
    auto work = [composer = composer_, request = std::move(request), stop]() mutable {
        return composer->compose(std::move(request), stop);
    };
    const auto picture = runInBackground(std::move(work));
    co_return co_await picture;
}

Image ImageRendererService::renderBackdrop(const BackdropSettings& backdrop, QSize pixels,
                                           double scale) {
    return composer_->renderBackdrop(backdrop, pixels, scale);
}

Image ImageRendererService::applyEffects(const Image& image, const BackdropEffects& effects,
                                         double scale) {
    return composer_->applyEffects(image, effects, scale);
}

Image ImageRendererService::renderOverlayImage(OverlayType type, QSize pixels, double opacity) {
    return Image(kestrio::renderOverlayImage(type, pixels, opacity));
}

Task<SavedFile> ImageRendererService::saveImage(Image image, SaveTarget target, ExportFormat format,
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

Task<> ImageRendererService::copyToClipboard(Image image) {
    const auto pasteboard = pasteboard_;
    auto work = [bitmap = image.bitmap()] { return encodeImage(bitmap, ExportFormat::png, {}); };
    const auto encoded = runInBackground(std::move(work));
    const QByteArray png = co_await encoded;
    auto writing = writeImagePatiently(pasteboard, image.bitmap(), png);
    const bool isWritten = co_await writing;
    if (!isWritten) throw ExportError::clipboardFailed();
}

}  // namespace kestrio
