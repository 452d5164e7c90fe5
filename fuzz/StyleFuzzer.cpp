// Any bytes either decode to a record or throw JsonError. What decodes is encoded and decoded to
// the same record again, and whatever numbers it holds, it can be drawn.

#include <cstddef>
#include <cstdint>

#include "imaging/ExportError.h"
#include "imaging/codecs/ImageDecoder.h"
#include "render/ImageComposer.h"
#include "render/style/Theme.h"
#include "render/style/WatermarkPreset.h"
#include "settings/AppSettings.h"

namespace {

using namespace kestrio;

// Larger ones are left to the decoder's own fuzzer.
constexpr DecodeLimits embeddedPictures{.memory = qint64(1) << 19, .side = 1 << 12};

// Pictures between these sizes are possible, but drawing them takes too long here.
constexpr qint64 smallPicture = 1 << 14;
constexpr qint64 impossiblePicture = qint64(1) << 28;

ImageComposer& composer() {
    static ImageComposer instance(
        std::make_shared<WatermarkService>(std::make_shared<MemoryUserDefaults>()));
    return instance;
}

bool isSmallPicture(const std::optional<QByteArray>& data) {
    if (!data) return true;
    try {
        decodeImage(*data, embeddedPictures);
    } catch (const ImageLoadError& error) {
        return error.errorCase() != ImageLoadError::Case::tooLarge;
    }
    return true;
}

CompositeRequest smallRequest(double density) {
    static const QImage bitmap = [] {
        QImage picture(24, 16, QImage::Format_ARGB32_Premultiplied);
        picture.fill(qRgba(80, 40, 20, 128));
        return picture;
    }();
    CompositeRequest request;
    request.screenshot = Image(bitmap, density);
    request.canvasState.canvasSize = {40, 30};
    return request;
}

void compose(const CompositeRequest& request) {
    const CompositeLayout layout = compositeLayout(request, request.screenshot.pixelDensity());
    contentRect(layout);
    if (layout.isValid()) {
        const QSize pixels = layout.outputPixels();
        const qint64 count = qint64(pixels.width()) * pixels.height();
        if (count > smallPicture && count <= impossiblePicture) return;
    }
    try {
        if (composer().compose(request).isNull()) __builtin_trap();
    } catch (const ExportError& error) {
        if (error.errorCase() != ExportError::Case::renderingFailed) __builtin_trap();
    }
}

void draw(const EditorStyleSettings& style) {
    const auto& image = style.backdrop.imageSettings;
    if (image && !isSmallPicture(image->imageData)) return;
    for (const double density : {1.0, 2.0}) {
        CompositeRequest request = smallRequest(density);
        request.setStyle(style);
        // Leaves room for the screenshot and its frame.
        request.backdrop.padding = std::min(request.backdrop.padding, 5.0);
        request.frameScale = 0.2;
        compose(request);
    }
}

void draw(const Theme& theme) {
    theme.createdAt.toDateTime();
    draw(theme.style());
}

void draw(const std::vector<WatermarkPreset>& presets) {
    for (const WatermarkPreset& preset : presets) {
        if (!isSmallPicture(preset.settings.imageData)) continue;
        CompositeRequest request = smallRequest(2);
        request.watermark = preset.settings;
        compose(request);
    }
}

void draw(const CanvasState& canvas) {
    CompositeRequest request = smallRequest(1);
    request.canvasState.transform = canvas.transform;
    compose(request);
    request.canvasState.canvasSize = canvas.canvasSize;
    compose(request);
    request.canvasState.canvasSize = canvasHolding(QSizeF(24, 16), canvas.aspectRatio);
    compose(request);
}

void draw(const AppSettings& settings) {
    settings.regionCaptureHotkey.displayString();
}

template <typename Record>
void examine(const QByteArray& text) {
    std::optional<Record> record;
    try {
        record = decodeJsonText<Record>(text);
    } catch (const JsonError& error) {
        if (error.errorDescription().isEmpty()) __builtin_trap();
        return;
    }
    if (!(decodeJsonText<Record>(encodeJsonText(*record)) == *record)) __builtin_trap();
    draw(*record);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    examine<EditorStyleSettings>(text);
    examine<Theme>(text);
    examine<std::vector<WatermarkPreset>>(text);
    examine<CanvasState>(text);
    examine<AppSettings>(text);
    return 0;
}
