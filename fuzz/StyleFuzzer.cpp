// Any bytes either decode to a record or throw JsonError. What decodes is encoded and decoded to
// the same record again, and whatever numbers it holds, it can be drawn.

#include <QGuiApplication>

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string_view>

#include "core/Parallel.h"
#include "imaging/ExportError.h"
#include "imaging/codecs/ImageDecoder.h"
#include "render/ImageComposer.h"
#include "render/style/Theme.h"
#include "render/style/WatermarkPreset.h"
#include "settings/AppSettings.h"

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t mostBytes);

namespace {

using namespace kestrio;

// Larger ones are left to the decoder's own fuzzer.
constexpr DecodeLimits embeddedPictures{.pixels = qint64(1) << 16, .side = 1 << 12};

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

bool isOfNumber(uint8_t byte) {
    return std::isdigit(byte) || byte == '-' || byte == '+' || byte == '.' || byte == 'e';
}

// Puts a number that is at some edge in the place of one of the text's own.
size_t replaceNumber(uint8_t* data, size_t size, size_t mostBytes, unsigned seed) {
    static constexpr std::string_view edges[] = {
        "0",      "-0.0",   "0.5",  "0.9999", "1",          "-1",   "1e308",
        "-1e308", "5e-324", "1e-9", "1e9",    "2147483648", "1e18", "18446744073709551615"};
    std::minstd_rand random(seed);
    const auto end = data + size;
    auto first =
        std::find_if(data + random() % size, end, [](uint8_t c) { return std::isdigit(c); });
    if (first == end) return LLVMFuzzerMutate(data, size, mostBytes);
    while (first > data && isOfNumber(first[-1]))
        --first;
    const auto last = std::find_if_not(first, end, isOfNumber);
    const std::string_view edge = edges[random() % std::size(edges)];
    const std::string rest(last, end);
    const size_t grown = (first - data) + edge.size() + rest.size();
    if (grown > mostBytes) return LLVMFuzzerMutate(data, size, mostBytes);
    std::copy(rest.begin(), rest.end(), std::copy(edge.begin(), edge.end(), first));
    return grown;
}

}  // namespace

// Fontconfig links its patterns by offsets, which the leak finder takes for nothing; Qt's cache of
// replacement fonts still holds them when a run ends.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argumentCount = 1;
    static char name[] = "StyleFuzzer";
    static char* arguments[] = {name, nullptr};
    static QGuiApplication application(argumentCount, arguments);
    setParallelThreadLimit(1);
    return 0;
}

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t mostBytes,
                                          unsigned int seed) {
    if (size == 0 || seed % 3 == 0) return LLVMFuzzerMutate(data, size, mostBytes);
    return replaceNumber(data, size, mostBytes, seed);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    examine<EditorStyleSettings>(text);
    examine<Theme>(text);
    examine<std::vector<WatermarkPreset>>(text);
    examine<CanvasState>(text);
    examine<AppSettings>(text);
    return 0;
}
