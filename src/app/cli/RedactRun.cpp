#include "app/cli/RedactRun.h"

#include "annotation/blur/BlurEffectRenderer.h"
#include "imaging/ExportError.h"
#include "imaging/codecs/PictureLoading.h"

#include <algorithm>

namespace kestrio {

namespace {

// The detector leaves room already; this is for what it misjudges by a pixel.
constexpr double padding = 2;  // pixels

// The renderer gives what it has reached where memory runs short, which must not be taken for done.
bool isBlackUnder(const QImage& bitmap, const std::vector<BlurAnnotation>& marks) {
    constexpr QRgb black = 0xff000000;
    return std::ranges::all_of(marks, [&bitmap](const BlurAnnotation& mark) {
        const QRect pixels = mark.bounds.toAlignedRect() & bitmap.rect();
        for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
            const auto* row = reinterpret_cast<const QRgb*>(bitmap.constScanLine(y));
            if (!std::all_of(row + pixels.left(), row + pixels.right() + 1,
                             [](QRgb pixel) { return pixel == black; }))
                return false;
        }
        return true;
    });
}

void requireTypes(std::vector<DetectionResult>& detections,
                  const std::set<SensitiveInfoType>& types) {
    if (types.empty()) return;
    std::erase_if(detections,
                  [&types](const DetectionResult& each) { return !types.contains(each.type); });
}

}  // namespace

Image covered(const Image& image, const std::vector<DetectionResult>& detections,
              RedactionKind kind, const std::stop_token& stop) {
    // One pixel a point, so that marks count in pixels.
    const QSizeF size = image.pixelSize();
    const auto marks = RedactionService().makeAnnotations({detections, size, padding, kind});
    if (marks.empty()) return image;
    const Image picture(image.bitmap(), size);
    Image result =
        BlurEffectRenderer::shared().apply(picture, marks, size, QRectF(QPointF(), size), stop);
    throwIfStopped(stop);
    const bool isUntouched = result.bitmap().cacheKey() == picture.bitmap().cacheKey();
    if (isUntouched || (kind == RedactionKind::solid && !isBlackUnder(result.bitmap(), marks)))
        throw ExportError::renderingFailed(Kestrio::tr("there is not enough memory for this"));
    return result;
}

Task<RedactResult> redactPicture(RedactRun run, RedactServices services, std::stop_token stop) {
    auto loading = loadPicture(run.input);
    LoadedPicture loaded = co_await loading;
    const Image image(std::move(loaded.bitmap));
    loaded = {};
    throwIfStopped(stop);
    RedactResult result;
    result.size = image.pixelSize();
    auto detecting = services.detector->detect(image, stop);
    result.detections = co_await detecting;
    requireTypes(result.detections, run.types);
    if (!run.job) co_return result;
    auto cover = [image, found = result.detections, kind = run.kind, stop] {
        return covered(image, found, kind, stop);
    };
    const auto covering = runInBackground(std::move(cover));
    Image picture = co_await covering;
    EncodeHooks hooks;
    hooks.stop = stop;
    auto saving =
        services.exporter->saveImage(std::move(picture), run.job->output, run.job->format, hooks);
    const SavedFile saved = co_await saving;
    result.savedPath = saved.path;
    co_return result;
}

}  // namespace kestrio
