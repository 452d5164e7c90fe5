#include "render/style/CanvasState.h"
#include "render/style/EffectPreset.h"
#include "render/style/GradientPreset.h"
#include "render/style/Theme.h"
#include "render/style/WatermarkPreset.h"

#include <gtest/gtest.h>

#include <bit>

namespace kestrio {
namespace {

EditorStyleSettings fullStyle() {
    EditorStyleSettings style;
    style.backdrop.type = BackdropType::image;
    style.backdrop.gradientPreset = QStringLiteral("ocean");
    style.backdrop.customGradientColors = {{{1, 0, 0, 1}, {0, 0.5, 0, 0.25}}};
    style.backdrop.effects = {1, 2, 250};
    style.backdrop.pattern = PatternSettings{PatternType::rays, 0.3, 0.5, {0.1, 0.2, 0.3, 0.4}};
    style.backdrop.overlay = OverlaySettings{OverlayType::vignette, 40, OverlayPosition::underlay};
    style.backdrop.imageSettings = ImageBackdropSettings{
        QByteArray("\x01\xff"), QStringLiteral("/p.png"), 3, 60, ImageScaleFit::fit};
    style.backdrop.portrait = PortraitSettings{PortraitEffectType::stage, 0.5, 2};
    style.mockup = {20, false, ShadowIntensity::high, LightSource::bottomRight};
    style.frameStyle = FrameStyle::stack2;
    return style;
}

TEST(StyleJson, WritesTheAgreedKeysInTheirOrder) {
    EXPECT_EQ(
        encodeJsonText(EditorStyleSettings()),
        R"({"backdrop":{"type":"solid","solidColor":{"red":0.2,"green":0.2,"blue":0.3,"alpha":1},)"
        R"("opacity":1,"padding":32,"effects":{"blur":0,"noise":0,"saturation":100}},)"
        R"("mockup":{"cornerRadius":12,"shadowEnabled":true,"shadowIntensity":"medium",)"
        R"("lightSource":"topLeft"},"frameStyle":"none"})");
    EXPECT_EQ(
        encodeJsonText(fullStyle()),
        R"({"backdrop":{"type":"image","solidColor":{"red":0.2,"green":0.2,"blue":0.3,"alpha":1},)"
        R"("gradientPreset":"ocean","customGradientColors":[{"red":1,"green":0,"blue":0,"alpha":1},)"
        R"({"red":0,"green":0.5,"blue":0,"alpha":0.25}],"opacity":1,"padding":32,)"
        R"("effects":{"blur":1,"noise":2,"saturation":250},"pattern":{"type":"rays","intensity":0.3,)"
        R"("thickness":0.5,"color":{"red":0.1,"green":0.2,"blue":0.3,"alpha":0.4}},)"
        R"("overlay":{"type":"vignette","opacity":40,"position":"underlay"},)"
        R"("imageSettings":{"imageData":"Af8=","imagePath":"/p.png","blur":3,"opacity":60,)"
        R"("scaleFit":"fit"},"portrait":{"effectType":"stage","position":0.5,"distance":2}},)"
        R"("mockup":{"cornerRadius":20,"shadowEnabled":false,"shadowIntensity":"high",)"
        R"("lightSource":"bottomRight"},"frameStyle":"stack2"})");
}

TEST(StyleJson, StylesRoundTrip) {
    EXPECT_EQ(decodeJsonText<EditorStyleSettings>(encodeJsonText(fullStyle())), fullStyle());
    for (const PresetTheme& preset : PresetTheme::all()) {
        EXPECT_EQ(decodeJsonText<EditorStyleSettings>(encodeJsonText(preset.style())),
                  preset.style());
    }
    const Theme theme = Theme::make(QStringLiteral("Mine"), fullStyle());
    EXPECT_EQ(decodeJsonText<Theme>(encodeJsonText(theme)), theme);
}

TEST(StyleJson, RequiredKeysAndKnownNamesAreInsistedOn) {
    struct Row {
        const char* remove;
        const char* replacement;
        const char* path;
    };
    const Row rows[] = {
        {R"("padding":32,)", "", "backdrop.padding"},
        {R"("effects":{"blur":0,"noise":0,"saturation":100})", R"("x":0)", "backdrop.effects"},
        {R"("solid",)", R"("solids",)", "backdrop.type"},
        {R"("noise":0,)", "", "backdrop.effects.noise"},
        {R"("green":0.2,)", R"("green":"0.2",)", "backdrop.solidColor.green"},
        {R"("medium")", R"("Medium")", "mockup.shadowIntensity"},
        {R"("frameStyle":"none")", R"("frameStyle":null)", "frameStyle"},
    };
    for (const Row& row : rows) {
        QByteArray text = encodeJsonText(EditorStyleSettings());
        ASSERT_TRUE(text.contains(row.remove));
        text.replace(row.remove, row.replacement);
        try {
            decodeJsonText<EditorStyleSettings>(text);
            ADD_FAILURE() << row.path;
        } catch (const JsonError& error) {
            EXPECT_EQ(error.path(), QString::fromLatin1(row.path));
        }
    }
}

TEST(StyleJson, MissingOptionalsDecodeAsAbsent) {
    const auto backdrop = decodeJsonText<BackdropSettings>(
        R"({"type":"none","opacity":2,"padding":-3,"effects":{"blur":0,"noise":0,"saturation":250}})");
    EXPECT_FALSE(backdrop.solidColor || backdrop.gradientPreset || backdrop.customGradientColors ||
                 backdrop.pattern || backdrop.overlay || backdrop.imageSettings ||
                 backdrop.portrait);
    EXPECT_EQ(backdrop.effects.saturation, 250) << "stored values are not clamped";
}

TEST(CanvasJson, HasArraysForGeometry) {
    CanvasState state;
    state.canvasSize = {800, 600};
    EXPECT_EQ(
        encodeJsonText(state),
        R"({"transform":{"offset":[0,0],"scale":1,"rotation":0},"aspectRatio":{"name":"Auto"},)"
        R"("canvasSize":[800,600],"isCropping":false})");
    state.cropRect = QRectF(1, 2, 3, 4);
    state.aspectRatio = {QStringLiteral("16:9"), 16.0 / 9.0};
    EXPECT_EQ(decodeJsonText<CanvasState>(encodeJsonText(state)), state);
    QByteArray text = encodeJsonText(state);
    EXPECT_THROW(decodeJsonText<CanvasState>(text.replace("isCropping", "isCropped")), JsonError);
}

TEST(WatermarkPreset, TheBitsOfTheDateWin) {
    WatermarkPreset preset{QUuid::createUuid(), QStringLiteral("Logo"), {}, Date{-0.1}};
    const JsonValue json = encodeJson(preset);
    EXPECT_EQ(json["createdAtBitPattern"].get<quint64>(), std::bit_cast<quint64>(-0.1));
    EXPECT_EQ(decodeJson<WatermarkPreset>(JsonReader(json)), preset);
    JsonValue older = json;
    older["createdAt"] = 5.5;
    EXPECT_EQ(decodeJson<WatermarkPreset>(JsonReader(older)).createdAt, Date{-0.1});
    older.erase("createdAtBitPattern");
    EXPECT_EQ(decodeJson<WatermarkPreset>(JsonReader(older)).createdAt, Date{5.5});
}

TEST(Libraries, GroupsAreCutFromTheGradientsInOrder) {
    std::vector<GradientPreset> joined;
    std::vector<std::size_t> sizes;
    for (const GradientGroup& group : GradientGroup::all()) {
        sizes.push_back(group.presets.size());
        joined.insert(joined.end(), group.presets.begin(), group.presets.end());
    }
    EXPECT_EQ(sizes, (std::vector<std::size_t>{5, 5, 5, 5, 4}));
    EXPECT_EQ(joined, GradientPreset::all());
    EXPECT_EQ(GradientPreset::find(QStringLiteral("nowhere")), nullptr);
    EXPECT_GT(GradientPreset::find(QStringLiteral("fire"))->startPoint.y, 0.9)
        << "fire burns upwards";
}

TEST(Libraries, EveryPresetNamesAGradientThatExists) {
    EXPECT_EQ(PresetTheme::all().size(), 12u);
    EXPECT_EQ(EffectPreset::all().size(), 12u);
    for (const PresetTheme& preset : PresetTheme::all()) {
        if (preset.backdrop.type != BackdropType::gradient) continue;
        EXPECT_NE(GradientPreset::find(*preset.backdrop.gradientPreset), nullptr);
    }
}

TEST(AspectRatio, LabelsAndCanvases) {
    EXPECT_EQ(customRatioLabel(16.0 / 9), QStringLiteral("1.78:1 (Landscape)"));
    EXPECT_EQ(customRatioLabel(0.8), QStringLiteral("1:1.25 (Portrait)"));
    EXPECT_EQ(customRatioLabel(1), QStringLiteral("1:1 (Square)"));
    EXPECT_EQ(canvasHolding({300, 200}, AspectRatio()), QSizeF(300, 200));
    EXPECT_EQ(canvasHolding({300, 200}, AspectRatio::custom(1, 1)), QSizeF(300, 300));
    EXPECT_EQ(canvasHolding({300, 200}, AspectRatio::custom(4, 1)), QSizeF(800, 200));
}

}  // namespace
}  // namespace kestrio
