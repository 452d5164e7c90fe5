#include "app/cli/StyleOptions.h"

#include "app/cli/CommandLine.h"
#include "app/cli/JsonFile.h"
#include "core/Localisation.h"
#include "imaging/codecs/ImageDecoder.h"
#include "render/style/EffectPreset.h"
#include "render/style/GradientPreset.h"
#include "render/style/Theme.h"

#include <QMap>
#include <cmath>

namespace kestrio {

namespace {

double numberOption(const QString& option, const QString& text) {
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number)) {
        throw UsageError(Kestrio::tr("--%1 takes a number, not \"%2\"").arg(option, text));
    }
    return number;
}

[[noreturn]] void refuseUnknown(const QString& what, const QString& value,
                                const QStringList& known) {
    throw UsageError(Kestrio::tr("unknown %1 \"%2\"; known are %3")
                         .arg(what, value, known.join(QStringLiteral(", "))));
}

template <typename E>
E enumOption(const QString& what, const QString& value) {
    if (const auto known = fromRawString<E>(value.toStdString())) return *known;
    refuseUnknown(what, value, rawStrings<E>());
}

template <typename List>
QStringList idsOf(const List& list) {
    QStringList ids;
    for (const auto& item : list)
        ids << item.id;
    return ids;
}

// Two numbers above 0 around a separator, as in "16:9".
QSizeF pairOption(const QString& option, const QString& text, QChar separator) {
    const QStringList parts = text.split(separator);
    bool widthIsNumber = false, heightIsNumber = false;
    const QSizeF pair(parts.value(0).toDouble(&widthIsNumber),
                      parts.value(1).toDouble(&heightIsNumber));
    if (parts.size() != 2 || !widthIsNumber || !heightIsNumber || !std::isfinite(pair.width()) ||
        !std::isfinite(pair.height()) || pair.isEmpty()) {
        const QString example = QStringLiteral("16") + separator + QStringLiteral("9");
        throw UsageError(Kestrio::tr("--%1 takes two numbers above 0 as in %2, not \"%3\"")
                             .arg(option, example, text));
    }
    return pair;
}

double positiveOption(const QString& option, const QString& text) {
    const double number = numberOption(option, text);
    if (number <= 0)
        throw UsageError(Kestrio::tr("--%1 takes a number above 0, not \"%2\"").arg(option, text));
    return number;
}

void applyPreset(CommandLineStyle& style, const QString&, const QString& value) {
    const PresetTheme* preset = PresetTheme::find(value);
    if (!preset) refuseUnknown(QStringLiteral("preset"), value, idsOf(PresetTheme::all()));
    style.style = preset->style();
}

void applyStyleFile(CommandLineStyle& style, const QString&, const QString& path) {
    style.style = decodeJsonFile<EditorStyleSettings>(
        path, Kestrio::marked("the style file %1 cannot be used: %2"));
}

CodableColor colorOption(const QString& value) {
    if (const auto color = CodableColor::fromHex(value)) return *color;
    throw UsageError(
        Kestrio::tr("\"%1\" is no colour; write it as #RRGGBB or #RRGGBBAA").arg(value));
}

void applyGradient(BackdropSettings& backdrop, const QString& value) {
    if (!GradientPreset::find(value)) {
        refuseUnknown(QStringLiteral("gradient"), value, idsOf(GradientPreset::all()));
    }
    backdrop.gradientPreset = value;
    backdrop.customGradientColors = std::nullopt;
}

void applyImage(BackdropSettings& backdrop, const QString& path) {
    ImageBackdropSettings settings;
    settings.imageData = readImageFile(path);
    settings.imagePath = path;
    // A picture that cannot be read is reported now, not drawn grey.
    DecodedPictures::shared()->whole(*settings.imageData);
    backdrop.imageSettings = settings;
}

void applyBackdrop(CommandLineStyle& style, const QString&, const QString& value) {
    const QString kind = value.section(u':', 0, 0);
    const QString detail = value.section(u':', 1);
    BackdropSettings& backdrop = style.style.backdrop;
    const auto type = enumOption<BackdropType>(QStringLiteral("backdrop"), kind);
    switch (type) {
        case BackdropType::none:
            break;
        case BackdropType::solid:
            backdrop.solidColor = colorOption(detail);
            break;
        case BackdropType::gradient:
            applyGradient(backdrop, detail);
            break;
        case BackdropType::image:
            applyImage(backdrop, detail);
            break;
    }
    backdrop.type = type;
}

void applyPadding(CommandLineStyle& style, const QString& option, const QString& value) {
    style.style.backdrop.padding = numberOption(option, value);
}

void applyFrame(CommandLineStyle& style, const QString& option, const QString& value) {
    style.style.frameStyle = enumOption<FrameStyle>(option, value);
}

void applyFrameScale(CommandLineStyle& style, const QString& option, const QString& value) {
    style.frameScale = numberOption(option, value);
}

void applyCornerRadius(CommandLineStyle& style, const QString& option, const QString& value) {
    style.style.mockup.cornerRadius = numberOption(option, value);
}

void applyShadow(CommandLineStyle& style, const QString& option, const QString& value) {
    style.style.mockup.shadowEnabled = value != u"off";
    if (value == u"off") return;
    const auto intensity = fromRawString<ShadowIntensity>(value.toStdString());
    if (!intensity) {
        refuseUnknown(option, value,
                      QStringList(QStringLiteral("off")) + rawStrings<ShadowIntensity>());
    }
    style.style.mockup.shadowIntensity = *intensity;
}

void applyLight(CommandLineStyle& style, const QString& option, const QString& value) {
    style.style.mockup.lightSource = enumOption<LightSource>(option, value);
}

PatternSettings& patternOf(CommandLineStyle& style) {
    auto& pattern = style.style.backdrop.pattern;
    if (!pattern) pattern = PatternSettings();
    return *pattern;
}

OverlaySettings& overlayOf(CommandLineStyle& style) {
    auto& overlay = style.style.backdrop.overlay;
    if (!overlay) overlay = OverlaySettings();
    return *overlay;
}

void applyPattern(CommandLineStyle& style, const QString& option, const QString& value) {
    patternOf(style).type = enumOption<PatternType>(option, value);
}

void applyPatternColor(CommandLineStyle& style, const QString&, const QString& value) {
    patternOf(style).color = colorOption(value);
}

void applyPatternIntensity(CommandLineStyle& style, const QString& option, const QString& value) {
    patternOf(style).intensity = numberOption(option, value);
}

void applyOverlayOpacity(CommandLineStyle& style, const QString& option, const QString& value) {
    overlayOf(style).opacity = numberOption(option, value);
}

void applyOverlay(CommandLineStyle& style, const QString& option, const QString& value) {
    overlayOf(style).type = enumOption<OverlayType>(option, value);
}

void applyEffect(CommandLineStyle& style, const QString& option, const QString& value) {
    for (const EffectPreset& preset : EffectPreset::all()) {
        if (preset.id != value) continue;
        style.style.backdrop.effects = preset.effects();
        return;
    }
    refuseUnknown(option, value, idsOf(EffectPreset::all()));
}

void applyAspect(CommandLineStyle& style, const QString& option, const QString& value) {
    const QSizeF pair = pairOption(option, value, u':');
    style.aspect = AspectRatio::custom(pair.width(), pair.height());
    style.canvasSize = std::nullopt;
}

void applyCanvas(CommandLineStyle& style, const QString& option, const QString& value) {
    style.canvasSize = pairOption(option, value, u'x');
    style.aspect = std::nullopt;
}

void applyKeepPixels(CommandLineStyle& style, const QString&, const QString&) {
    style.keepPixels = true;
}

void applyRotation(CommandLineStyle& style, const QString& option, const QString& value) {
    style.rotation = numberOption(option, value);
}

void applyWatermark(CommandLineStyle& style, const QString&, const QString& value) {
    style.watermark = WatermarkSettings();
    style.watermark->textContent = value;
}

void applyAnnotations(CommandLineStyle& style, const QString&, const QString& path) {
    style.annotations = decodeJsonFile<std::vector<AnyAnnotation>>(
        path, Kestrio::marked("the annotations in %1 cannot be used: %2"));
}

void applyDensity(CommandLineStyle& style, const QString& option, const QString& value) {
    style.pixelsPerPoint = positiveOption(option, value);
}

struct StyleOption {
    const char* name;
    const char* valueName;  ///< null for a switch
    const char* help;
    void (*apply)(CommandLineStyle&, const QString& option, const QString& value);
};

constexpr StyleOption styleOptions[] = {
    {"preset", "ID", Kestrio::marked("start from a built-in style"), applyPreset},
    {"style", "FILE", Kestrio::marked("start from the JSON of an editor style"), applyStyleFile},
    {"backdrop", "KIND", Kestrio::marked("none, solid:#RRGGBB, gradient:ID or image:FILE"),
     applyBackdrop},
    {"padding", "N", Kestrio::marked("points between canvas and picture, 0 to 100"), applyPadding},
    {"frame", "NAME", Kestrio::marked("none, macOS, safari, arc, windows, stack or stack2"),
     applyFrame},
    {"frame-scale", "F", Kestrio::marked("size of the frame's title bar, 1 is natural"),
     applyFrameScale},
    {"corner-radius", "N", Kestrio::marked("points, 4 and less is square"), applyCornerRadius},
    {"shadow", "STRENGTH", Kestrio::marked("off, low, medium or high"), applyShadow},
    {"light", "NAME", Kestrio::marked("where the light comes from, such as topLeft"), applyLight},
    {"pattern", "NAME", Kestrio::marked("circles, waves, dots, rays, grid, stripes, noise or none"),
     applyPattern},
    {"pattern-color", "#RRGGBBAA", Kestrio::marked("its colour, black at 10 percent unless given"),
     applyPatternColor},
    {"pattern-intensity", "F", Kestrio::marked("its strength, 0 to 1"), applyPatternIntensity},
    {"overlay", "NAME",
     Kestrio::marked("diagonalShadow, naturalShadow, softGlow, vignette or none"), applyOverlay},
    {"overlay-opacity", "PERCENT", Kestrio::marked("its strength, 10 unless given"),
     applyOverlayOpacity},
    {"effect", "ID", Kestrio::marked("backdrop effects, such as dreamy or film"), applyEffect},
    {"aspect", "W:H", Kestrio::marked("shape of the canvas around the picture"), applyAspect},
    {"canvas", "WxH", Kestrio::marked("size of the canvas in points"), applyCanvas},
    {"keep-pixels", nullptr,
     Kestrio::marked("let the canvas grow so that the picture is not resampled"), applyKeepPixels},
    {"rotate", "DEGREES", Kestrio::marked("turn the finished picture clockwise"), applyRotation},
    {"watermark", "TEXT", Kestrio::marked("burn a text into the picture"), applyWatermark},
    {"annotations", "FILE", Kestrio::marked("draw the annotations of a JSON list"),
     applyAnnotations},
    {"density", "F", Kestrio::marked("pixels per point of the input, 1 unless given"),
     applyDensity},
};

}  // namespace

CompositeRequest CommandLineStyle::requestFor(const QImage& bitmap) const {
    CompositeRequest request;
    request.screenshot = Image(bitmap, pixelsPerPoint);
    request.setStyle(style);
    if (keepPixels) request.backdrop.keepPixels = true;
    request.frameScale = frameScale;
    request.watermark = watermark;
    request.annotations = annotations;
    request.canvasState.aspectRatio = aspect.value_or(AspectRatio());
    request.canvasState.canvasSize = canvasSize.value_or(
        canvasHolding(request.screenshot.pointSize(), request.canvasState.aspectRatio));
    request.canvasState.transform.rotation = rotation;
    return request;
}

void addStyleOptions(QCommandLineParser& parser) {
    for (const StyleOption& option : styleOptions) {
        parser.addOption({QString::fromLatin1(option.name), Kestrio::tr(option.help),
                          QString::fromLatin1(option.valueName)});
    }
}

CommandLineStyle styleFromOptions(const QCommandLineParser& parser) {
    CommandLineStyle style;
    QMap<QString, qsizetype> used;
    for (const QString& name : parser.optionNames()) {
        for (const StyleOption& option : styleOptions) {
            if (name != QLatin1String(option.name)) continue;
            option.apply(style, name, parser.values(name).value(used[name]++));
        }
    }
    return style;
}

}  // namespace kestrio
