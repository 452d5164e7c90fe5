#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <limits>

#include "imaging/ExportError.h"
#include "render/RenderFixtures.h"
#include "render/style/Theme.h"
#include "render/style/WatermarkPreset.h"

namespace kestrio {
namespace {

// Every request ends, with a picture or with the one error that says it cannot be rendered.
bool isRefused(const CompositeRequest& request) {
    try {
        EXPECT_FALSE(testComposer().compose(request).isNull());
    } catch (const ExportError& error) {
        EXPECT_EQ(error.errorCase(), ExportError::Case::renderingFailed);
        return true;
    }
    return false;
}

CompositeRequest smallRequest(double density, const EditorStyleSettings& style = {}) {
    CompositeRequest request = requestOf(testScreenshot({24, 16}), style);
    request.screenshot = Image(request.screenshot.bitmap(), density);
    request.canvasState.canvasSize = {40, 30};
    request.backdrop.padding = std::min(request.backdrop.padding, 5.0);
    request.frameScale = 0.2;
    return request;
}

void expectDrawn(const EditorStyleSettings& style) {
    EXPECT_FALSE(isRefused(smallRequest(1, style)));
    EXPECT_FALSE(isRefused(smallRequest(2, style)));
}

void expectDrawn(const std::vector<WatermarkPreset>& presets) {
    for (const WatermarkPreset& preset : presets) {
        CompositeRequest request = smallRequest(2);
        request.watermark = preset.settings;
        EXPECT_FALSE(isRefused(request));
    }
}

// A wild canvas may be refused; its rotation may not.
void expectDrawn(const CanvasState& canvas) {
    CompositeRequest request = smallRequest(1);
    request.canvasState = canvas;
    isRefused(request);
    request.canvasState.canvasSize = canvasHolding({24, 16}, canvas.aspectRatio);
    isRefused(request);
    request.canvasState.canvasSize = {40, 30};
    EXPECT_FALSE(isRefused(request));
}

template <typename Record>
void examine(const QByteArray& text) {
    const auto record = decodeJsonText<Record>(text);
    EXPECT_EQ(decodeJsonText<Record>(encodeJsonText(record)), record);
    expectDrawn(record);
}

// What the fuzzer stumbled over, and numbers at the edges. A file's name begins with the kind of
// its record.
TEST(FuzzedStyles, DecodeToTheSameAgainAndCanBeDrawn) {
    struct Row {
        const char* kind;
        void (*examine)(const QByteArray&);
    };
    const Row rows[] = {
        {"style-*", examine<EditorStyleSettings>},
        {"watermarks-*", examine<std::vector<WatermarkPreset>>},
        {"canvas-*", examine<CanvasState>},
    };
    const QDir folder(QStringLiteral(KESTRIO_SOURCE_DIR "/tests/render/fuzzed"));
    qsizetype examined = 0;
    for (const Row& row : rows) {
        const QStringList names = folder.entryList({QString::fromLatin1(row.kind)}, QDir::Files);
        EXPECT_FALSE(names.isEmpty()) << row.kind;
        for (const QString& name : names) {
            SCOPED_TRACE(name.toStdString());
            QFile file(folder.filePath(name));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            EXPECT_NO_THROW(row.examine(file.readAll()));
        }
        examined += names.size();
    }
    EXPECT_EQ(examined, folder.entryList(QDir::Files).size()) << "a file of an unknown kind";
}

TEST(FuzzedStyles, WildSizesAreDrawnOrRefusedAtOnce) {
    constexpr double huge = 1e308;
    constexpr double least = std::numeric_limits<double>::denorm_min();
    struct Row {
        double density;
        QSizeF canvas;
        double frameScale;
        double rotation;
        bool isRefused;
    };
    const Row rows[] = {
        {1, {40, 30}, 1e9, 0, false},         {1, {40, 30}, huge, 0, false},
        {1, {40, 30}, least, 0, false},       {1, {40, 30}, -huge, 0, false},
        {1, {40, 30}, 0.01, 1e300, false},    {1, {40, 30}, 0.01, -huge, false},
        {least, {40, 30}, 0.01, 0, true},     {1e-300, {40, 30}, 0.01, 0, false},
        {1e9, {40, 30}, 0.01, 0, false},      {huge, {4, 3}, 0.01, 12, false},
        {1e9, {1e-3, 1e-3}, 0.01, 45, false}, {1, {least, least}, 0.01, 0, false},
        {1, {1e-300, 100}, 1, 90, false},     {huge, {1e-300, 1e-300}, 0.01, 0, false},
        {1, {huge, huge}, 1, 0, true},        {1, {huge, least}, 1, 0, true},
        {1e9, {1e9, 1e9}, 1, 0, true},        {1, {16000, 16000}, 1, 45, true},
        {1, {200000000, 1}, 1, 0.5, true},
    };
    for (const Row& row : rows) {
        CompositeRequest request = smallRequest(row.density);
        request.canvasState.canvasSize = row.canvas;
        request.canvasState.transform.rotation = row.rotation;
        request.backdrop.padding = 0;
        request.frameStyle = FrameStyle::stack2;
        request.frameScale = row.frameScale;
        request.watermark.emplace();
        EXPECT_EQ(isRefused(request), row.isRefused)
            << "density " << row.density << ", canvas " << row.canvas.width() << " x "
            << row.canvas.height() << ", frame " << row.frameScale << ", turn " << row.rotation;
    }
}

}  // namespace
}  // namespace kestrio
