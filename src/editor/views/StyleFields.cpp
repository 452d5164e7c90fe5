#include "editor/views/StyleFields.h"

#include "editor/views/ViewRows.h"
#include "render/style/EffectPreset.h"
#include "render/style/GradientPreset.h"

#include <QColor>

namespace kestrio {

namespace {

template <typename E>
E enumOf(const QString& value, E otherwise) {
    return namedValue<E>(value).value_or(otherwise);
}

/// A change of one part of the style, through a copy of it.
template <typename Change>
void changeBackdrop(EditorViewModel& editor, Change change) {
    BackdropSettings backdrop = editor.styleModel().backdrop();
    change(backdrop);
    editor.styleModel().set_backdrop(backdrop);
}

template <typename Change>
void changeMockup(EditorViewModel& editor, Change change) {
    MockupSettings mockup = editor.styleModel().mockup();
    change(mockup);
    editor.styleModel().set_mockup(mockup);
}

template <typename Change>
void changePattern(EditorViewModel& editor, Change change) {
    changeBackdrop(editor, [&](BackdropSettings& backdrop) {
        PatternSettings pattern = backdrop.pattern.value_or(PatternSettings());
        change(pattern);
        backdrop.pattern = pattern;
    });
}

template <typename Change>
void changeOverlay(EditorViewModel& editor, Change change) {
    changeBackdrop(editor, [&](BackdropSettings& backdrop) {
        OverlaySettings overlay = backdrop.overlay.value_or(OverlaySettings());
        change(overlay);
        backdrop.overlay = overlay;
    });
}

template <typename Change>
void changeImage(EditorViewModel& editor, Change change) {
    changeBackdrop(editor, [&](BackdropSettings& backdrop) {
        ImageBackdropSettings image = backdrop.imageSettings.value_or(ImageBackdropSettings());
        change(image);
        backdrop.imageSettings = image;
    });
}

template <typename Change>
void changeWatermark(EditorViewModel& editor, Change change) {
    WatermarkSettings mark = editor.watermarkVM().settings();
    change(mark);
    editor.watermarkVM().set_settings(mark);
}

PatternSettings patternOf(const EditorViewModel& editor) {
    return editor.styleModel().backdrop().pattern.value_or(PatternSettings());
}

OverlaySettings overlayOf(const EditorViewModel& editor) {
    return editor.styleModel().backdrop().overlay.value_or(OverlaySettings());
}

ImageBackdropSettings imageOf(const EditorViewModel& editor) {
    return editor.styleModel().backdrop().imageSettings.value_or(ImageBackdropSettings());
}

const WatermarkSettings& watermarkOf(const EditorViewModel& editor) {
    return editor.watermarkVM().settings();
}

}  // namespace

using Editor = EditorViewModel;

const StyleText::Row StyleFields::backdropTypeRow = {
    [](const Editor& e) -> QString { return rawName(e.styleModel().backdrop().type); },
    [](Editor& e, const QString& v) {
        changeBackdrop(e, [&](auto& b) {
            b.type = enumOf(v, b.type);
            const bool isChosen = b.gradientPreset || b.customGradientColors;
            if (b.type == BackdropType::gradient && !isChosen) {
                b.gradientPreset = GradientPreset::all().front().id;
            }
        });
    }};

const StyleColor::Row StyleFields::solidColorRow = {
    [](const Editor& e) -> QColor {
        return e.styleModel()
            .backdrop()
            .solidColor.value_or(CodableColor{0.5, 0.5, 0.5, 1})
            .toQColor();
    },
    [](Editor& e, const QColor& v) {
        changeBackdrop(e, [&](auto& b) {
            b.type = BackdropType::solid;
            b.solidColor = codableColor(v);
        });
    }};

const StyleText::Row StyleFields::gradientRow = {
    [](const Editor& e) -> QString {
        return e.styleModel().backdrop().customGradientColors
                   ? QString()
                   : e.styleModel().backdrop().gradientPreset.value_or(QString());
    },
    [](Editor& e, const QString& v) {
        changeBackdrop(e, [&](auto& b) {
            b.type = BackdropType::gradient;
            b.gradientPreset = v;
            b.customGradientColors = std::nullopt;
        });
    }};

const StyleColors::Row StyleFields::customGradientRow = {
    [](const Editor& e) -> QVariantList {
        QVariantList colors;
        for (const auto& color :
             e.styleModel().backdrop().customGradientColors.value_or(std::vector<CodableColor>()))
            colors << color.toQColor();
        return colors;
    },
    [](Editor& e, const QVariantList& v) {
        changeBackdrop(e, [&](auto& b) {
            std::vector<CodableColor> colors;
            for (const QVariant& color : v)
                colors.push_back(codableColor(color.value<QColor>()));
            b.type = BackdropType::gradient;
            b.customGradientColors = colors;
        });
    }};

const StyleSwitch::Row StyleFields::hasImageRow = {
    [](const Editor& e) -> bool { return imageOf(e).imageData.has_value(); }};

const StyleNumber::Row StyleFields::imageBlurRow = {
    [](const Editor& e) -> double { return imageOf(e).blur; },
    [](Editor& e, const double& v) { changeImage(e, [&](auto& i) { i.blur = v; }); },
    &ImageBackdropSettings::blurRange};

const StyleNumber::Row StyleFields::imageOpacityRow = {
    [](const Editor& e) -> double { return imageOf(e).opacity; },
    [](Editor& e, const double& v) { changeImage(e, [&](auto& i) { i.opacity = v; }); },
    &ImageBackdropSettings::opacityRange};

const StyleText::Row StyleFields::imageFitRow = {
    [](const Editor& e) -> QString { return rawName(imageOf(e).scaleFit); },
    [](Editor& e, const QString& v) {
        changeImage(e, [&](auto& i) { i.scaleFit = enumOf(v, i.scaleFit); });
    }};

const StyleNumber::Row StyleFields::opacityRow = {
    [](const Editor& e) -> double { return e.styleModel().backdrop().opacity; },
    [](Editor& e, const double& v) { changeBackdrop(e, [&](auto& b) { b.opacity = v; }); },
    &BackdropSettings::opacityRange};

const StyleNumber::Row StyleFields::paddingRow = {
    [](const Editor& e) -> double { return e.styleModel().backdrop().padding; },
    [](Editor& e, const double& v) { changeBackdrop(e, [&](auto& b) { b.padding = v; }); },
    &BackdropSettings::paddingRange};

const StyleSwitch::Row StyleFields::keepPixelsRow = {
    [](const Editor& e) -> bool { return e.styleModel().backdrop().keepPixels.value_or(false); },
    [](Editor& e, const bool& v) {
        changeBackdrop(e, [&](auto& b) { b.keepPixels = v ? std::optional(true) : std::nullopt; });
    }};

const StyleNumber::Row StyleFields::blurRow = {
    [](const Editor& e) -> double { return e.styleModel().backdrop().effects.blur; },
    [](Editor& e, const double& v) { changeBackdrop(e, [&](auto& b) { b.effects.blur = v; }); },
    &BackdropEffects::blurRange};

const StyleNumber::Row StyleFields::noiseRow = {
    [](const Editor& e) -> double { return e.styleModel().backdrop().effects.noise; },
    [](Editor& e, const double& v) { changeBackdrop(e, [&](auto& b) { b.effects.noise = v; }); },
    &BackdropEffects::noiseRange};

const StyleNumber::Row StyleFields::saturationRow = {
    [](const Editor& e) -> double { return e.styleModel().backdrop().effects.saturation; },
    [](Editor& e, const double& v) {
        changeBackdrop(e, [&](auto& b) { b.effects.saturation = v; });
    },
    &BackdropEffects::saturationRange};

const StyleText::Row StyleFields::effectRow = {
    [](const Editor& e) -> QString {
        for (const EffectPreset& preset : EffectPreset::all())
            if (preset.effects() == e.styleModel().backdrop().effects) return preset.id;
        return QString();
    },
    [](Editor& e, const QString& v) {
        for (const EffectPreset& preset : EffectPreset::all())
            if (preset.id == v) changeBackdrop(e, [&](auto& b) { b.effects = preset.effects(); });
    }};

const StyleText::Row StyleFields::patternRow = {
    [](const Editor& e) -> QString { return rawName(patternOf(e).type); },
    [](Editor& e, const QString& v) {
        changePattern(e, [&](auto& p) { p.type = enumOf(v, p.type); });
    }};

const StyleNumber::Row StyleFields::patternIntensityRow = {
    [](const Editor& e) -> double { return patternOf(e).intensity; },
    [](Editor& e, const double& v) { changePattern(e, [&](auto& p) { p.intensity = v; }); },
    &PatternSettings::intensityRange};

const StyleNumber::Row StyleFields::patternThicknessRow = {
    [](const Editor& e) -> double { return patternOf(e).thickness; },
    [](Editor& e, const double& v) { changePattern(e, [&](auto& p) { p.thickness = v; }); },
    &PatternSettings::thicknessRange};

const StyleColor::Row StyleFields::patternColorRow = {
    [](const Editor& e) -> QColor { return patternOf(e).color.toQColor(); },
    [](Editor& e, const QColor& v) {
        changePattern(e, [&](auto& p) { p.color = codableColor(v); });
    }};

const StyleText::Row StyleFields::overlayRow = {
    [](const Editor& e) -> QString { return rawName(overlayOf(e).type); },
    [](Editor& e, const QString& v) {
        changeOverlay(e, [&](auto& o) { o.type = enumOf(v, o.type); });
    }};

const StyleNumber::Row StyleFields::overlayOpacityRow = {
    [](const Editor& e) -> double { return overlayOf(e).opacity; },
    [](Editor& e, const double& v) { changeOverlay(e, [&](auto& o) { o.opacity = v; }); },
    &OverlaySettings::opacityRange};

const StyleText::Row StyleFields::overlayPositionRow = {
    [](const Editor& e) -> QString { return rawName(overlayOf(e).position); },
    [](Editor& e, const QString& v) {
        changeOverlay(e, [&](auto& o) { o.position = enumOf(v, o.position); });
    }};

const StyleText::Row StyleFields::frameRow = {
    [](const Editor& e) -> QString { return rawName(e.styleModel().frameStyle()); },
    [](Editor& e, const QString& v) {
        e.styleModel().set_frameStyle(enumOf(v, e.styleModel().frameStyle()));
    }};

const StyleNumber::Row StyleFields::frameScaleRow = {
    [](const Editor& e) -> double { return e.styleModel().frameScale(); },
    [](Editor& e, const double& v) { e.styleModel().set_frameScale(v); }, &frameScaleRange};

const StyleNumber::Row StyleFields::cornerRadiusRow = {
    [](const Editor& e) -> double { return e.styleModel().mockup().cornerRadius; },
    [](Editor& e, const double& v) { changeMockup(e, [&](auto& m) { m.cornerRadius = v; }); },
    &MockupSettings::cornerRadiusRange};

const StyleSwitch::Row StyleFields::shadowRow = {
    [](const Editor& e) -> bool { return e.styleModel().mockup().shadowEnabled; },
    [](Editor& e, const bool& v) { changeMockup(e, [&](auto& m) { m.shadowEnabled = v; }); }};

const StyleText::Row StyleFields::shadowIntensityRow = {
    [](const Editor& e) -> QString { return rawName(e.styleModel().mockup().shadowIntensity); },
    [](Editor& e, const QString& v) {
        changeMockup(e, [&](auto& m) { m.shadowIntensity = enumOf(v, m.shadowIntensity); });
    }};

const StyleText::Row StyleFields::lightRow = {
    [](const Editor& e) -> QString { return rawName(e.styleModel().mockup().lightSource); },
    [](Editor& e, const QString& v) {
        changeMockup(e, [&](auto& m) { m.lightSource = enumOf(v, m.lightSource); });
    }};

const StyleSwitch::Row StyleFields::watermarkRow = {
    [](const Editor& e) -> bool { return e.watermarkVM().isEnabled(); },
    [](Editor& e, const bool& v) { e.watermarkVM().set_isEnabled(v); }};

const StyleText::Row StyleFields::watermarkTypeRow = {
    [](const Editor& e) -> QString { return rawName(watermarkOf(e).type); },
    [](Editor& e, const QString& v) {
        changeWatermark(e, [&](auto& w) { w.type = enumOf(v, w.type); });
    }};

const StyleText::Row StyleFields::watermarkFontRow = {
    [](const Editor& e) -> QString { return watermarkOf(e).fontName; },
    [](Editor& e, const QString& v) { changeWatermark(e, [&](auto& w) { w.fontName = v; }); }};

const StyleNumber::Row StyleFields::watermarkOffsetXRow = {
    [](const Editor& e) -> double { return watermarkOf(e).offsetX; },
    [](Editor& e, const double& v) { changeWatermark(e, [&](auto& w) { w.offsetX = v; }); },
    &WatermarkSettings::offsetRange};

const StyleNumber::Row StyleFields::watermarkOffsetYRow = {
    [](const Editor& e) -> double { return watermarkOf(e).offsetY; },
    [](Editor& e, const double& v) { changeWatermark(e, [&](auto& w) { w.offsetY = v; }); },
    &WatermarkSettings::offsetRange};

const StyleText::Row StyleFields::watermarkTextRow = {
    [](const Editor& e) -> QString { return watermarkOf(e).textContent; },
    [](Editor& e, const QString& v) { changeWatermark(e, [&](auto& w) { w.textContent = v; }); }};

const StyleText::Row StyleFields::watermarkPositionRow = {
    [](const Editor& e) -> QString { return rawName(watermarkOf(e).position); },
    [](Editor& e, const QString& v) {
        changeWatermark(e, [&](auto& w) { w.position = enumOf(v, w.position); });
    }};

const StyleNumber::Row StyleFields::watermarkOpacityRow = {
    [](const Editor& e) -> double { return watermarkOf(e).opacity; },
    [](Editor& e, const double& v) { changeWatermark(e, [&](auto& w) { w.opacity = v; }); },
    &WatermarkSettings::opacityRange};

const StyleNumber::Row StyleFields::watermarkScaleRow = {
    [](const Editor& e) -> double { return watermarkOf(e).scale; },
    [](Editor& e, const double& v) { changeWatermark(e, [&](auto& w) { w.scale = v; }); },
    &WatermarkSettings::scaleRange};

const StyleColor::Row StyleFields::watermarkColorRow = {
    [](const Editor& e) -> QColor { return watermarkOf(e).textColor.toQColor(); },
    [](Editor& e, const QColor& v) {
        changeWatermark(e, [&](auto& w) { w.textColor = codableColor(v); });
    }};

StyleFields::StyleFields(EditorViewModel& editor, QObject* parent)
    : QObject(parent), editor_(editor) {
    using Mark = WatermarkViewModel;
    connect(&editor.styleModel(), &StyleModel::styleChanged, this, &StyleFields::refresh);
    for (const auto signal : {&Mark::isEnabledChanged, &Mark::settingsChanged})
        connect(&editor.watermarkVM(), signal, this, &StyleFields::refresh);
}

void StyleFields::refresh() {
    for (QObject* field : children())
        static_cast<StyleField*>(field)->refresh();
}

CodableColor codableColor(const QColor& color) {
    const QColor rgb = color.toRgb();
    return {rgb.redF(), rgb.greenF(), rgb.blueF(), rgb.alphaF()};
}

}  // namespace kestrio
