#include "editor/views/StyleFields.h"

#include "editor/views/ViewRows.h"
#include "render/style/EffectPreset.h"
#include "render/style/GradientPreset.h"

#include <QColor>

namespace kestrio {

namespace {

CodableColor codable(const QVariant& value) {
    return codableColor(value.value<QColor>());
}

template <typename E>
E enumOf(const QVariant& value, E otherwise) {
    return namedValue<E>(value.toString()).value_or(otherwise);
}

struct StyleField {
    const char* name;
    QVariant (*get)(const EditorViewModel&);
    void (*set)(EditorViewModel&, const QVariant&);  ///< null where it is only shown
    const StyleRange* range = nullptr;               ///< of a number, which is clamped to it
};

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

using Editor = EditorViewModel;
using Value = QVariant;

constexpr StyleField fields[] = {
    {"backdropType",
     [](const Editor& e) -> Value { return rawName(e.styleModel().backdrop().type); },
     [](Editor& e, const Value& v) {
         changeBackdrop(e, [&](auto& b) {
             b.type = enumOf(v, b.type);
             const bool isChosen = b.gradientPreset || b.customGradientColors;
             if (b.type == BackdropType::gradient && !isChosen) {
                 b.gradientPreset = GradientPreset::all().front().id;
             }
         });
     }},
    {"solidColor",
     [](const Editor& e) -> Value {
         return e.styleModel()
             .backdrop()
             .solidColor.value_or(CodableColor{0.5, 0.5, 0.5, 1})
             .toQColor();
     },
     [](Editor& e, const Value& v) {
         changeBackdrop(e, [&](auto& b) {
             b.type = BackdropType::solid;
             b.solidColor = codable(v);
         });
     }},
    {"gradient",
     [](const Editor& e) -> Value {
         return e.styleModel().backdrop().customGradientColors
                    ? QString()
                    : e.styleModel().backdrop().gradientPreset.value_or(QString());
     },
     [](Editor& e, const Value& v) {
         changeBackdrop(e, [&](auto& b) {
             b.type = BackdropType::gradient;
             b.gradientPreset = v.toString();
             b.customGradientColors = std::nullopt;
         });
     }},
    {"customGradient",
     [](const Editor& e) -> Value {
         QVariantList colors;
         for (const auto& color :
              e.styleModel().backdrop().customGradientColors.value_or(std::vector<CodableColor>()))
             colors << color.toQColor();
         return colors;
     },
     [](Editor& e, const Value& v) {
         changeBackdrop(e, [&](auto& b) {
             std::vector<CodableColor> colors;
             for (const QVariant& color : v.toList())
                 colors.push_back(codable(color));
             b.type = BackdropType::gradient;
             b.customGradientColors = colors;
         });
     }},
    {"hasImage", [](const Editor& e) -> Value { return imageOf(e).imageData.has_value(); },
     nullptr},
    {"imageBlur", [](const Editor& e) -> Value { return imageOf(e).blur; },
     [](Editor& e, const Value& v) { changeImage(e, [&](auto& i) { i.blur = v.toDouble(); }); },
     &ImageBackdropSettings::blurRange},
    {"imageOpacity", [](const Editor& e) -> Value { return imageOf(e).opacity; },
     [](Editor& e, const Value& v) { changeImage(e, [&](auto& i) { i.opacity = v.toDouble(); }); },
     &ImageBackdropSettings::opacityRange},
    {"imageFit", [](const Editor& e) -> Value { return rawName(imageOf(e).scaleFit); },
     [](Editor& e, const Value& v) {
         changeImage(e, [&](auto& i) { i.scaleFit = enumOf(v, i.scaleFit); });
     }},
    {"opacity", [](const Editor& e) -> Value { return e.styleModel().backdrop().opacity; },
     [](Editor& e, const Value& v) {
         changeBackdrop(e, [&](auto& b) { b.opacity = v.toDouble(); });
     },
     &BackdropSettings::opacityRange},
    {"padding", [](const Editor& e) -> Value { return e.styleModel().backdrop().padding; },
     [](Editor& e, const Value& v) {
         changeBackdrop(e, [&](auto& b) { b.padding = v.toDouble(); });
     },
     &BackdropSettings::paddingRange},
    {"keepPixels",
     [](const Editor& e) -> Value { return e.styleModel().backdrop().keepPixels.value_or(false); },
     [](Editor& e, const Value& v) {
         changeBackdrop(
             e, [&](auto& b) { b.keepPixels = v.toBool() ? std::optional(true) : std::nullopt; });
     }},
    {"blur", [](const Editor& e) -> Value { return e.styleModel().backdrop().effects.blur; },
     [](Editor& e, const Value& v) {
         changeBackdrop(e, [&](auto& b) { b.effects.blur = v.toDouble(); });
     },
     &BackdropEffects::blurRange},
    {"noise", [](const Editor& e) -> Value { return e.styleModel().backdrop().effects.noise; },
     [](Editor& e, const Value& v) {
         changeBackdrop(e, [&](auto& b) { b.effects.noise = v.toDouble(); });
     },
     &BackdropEffects::noiseRange},
    {"saturation",
     [](const Editor& e) -> Value { return e.styleModel().backdrop().effects.saturation; },
     [](Editor& e, const Value& v) {
         changeBackdrop(e, [&](auto& b) { b.effects.saturation = v.toDouble(); });
     },
     &BackdropEffects::saturationRange},
    {"effect",
     [](const Editor& e) -> Value {
         for (const EffectPreset& preset : EffectPreset::all())
             if (preset.effects() == e.styleModel().backdrop().effects) return preset.id;
         return QString();
     },
     [](Editor& e, const Value& v) {
         for (const EffectPreset& preset : EffectPreset::all())
             if (preset.id == v.toString())
                 changeBackdrop(e, [&](auto& b) { b.effects = preset.effects(); });
     }},
    {"pattern", [](const Editor& e) -> Value { return rawName(patternOf(e).type); },
     [](Editor& e, const Value& v) {
         changePattern(e, [&](auto& p) { p.type = enumOf(v, p.type); });
     }},
    {"patternIntensity", [](const Editor& e) -> Value { return patternOf(e).intensity; },
     [](Editor& e, const Value& v) {
         changePattern(e, [&](auto& p) { p.intensity = v.toDouble(); });
     },
     &PatternSettings::intensityRange},
    {"patternThickness", [](const Editor& e) -> Value { return patternOf(e).thickness; },
     [](Editor& e, const Value& v) {
         changePattern(e, [&](auto& p) { p.thickness = v.toDouble(); });
     },
     &PatternSettings::thicknessRange},
    {"patternColor", [](const Editor& e) -> Value { return patternOf(e).color.toQColor(); },
     [](Editor& e, const Value& v) { changePattern(e, [&](auto& p) { p.color = codable(v); }); }},
    {"overlay", [](const Editor& e) -> Value { return rawName(overlayOf(e).type); },
     [](Editor& e, const Value& v) {
         changeOverlay(e, [&](auto& o) { o.type = enumOf(v, o.type); });
     }},
    {"overlayOpacity", [](const Editor& e) -> Value { return overlayOf(e).opacity; },
     [](Editor& e, const Value& v) {
         changeOverlay(e, [&](auto& o) { o.opacity = v.toDouble(); });
     },
     &OverlaySettings::opacityRange},
    {"overlayPosition", [](const Editor& e) -> Value { return rawName(overlayOf(e).position); },
     [](Editor& e, const Value& v) {
         changeOverlay(e, [&](auto& o) { o.position = enumOf(v, o.position); });
     }},
    {"frame", [](const Editor& e) -> Value { return rawName(e.styleModel().frameStyle()); },
     [](Editor& e, const Value& v) {
         e.styleModel().set_frameStyle(enumOf(v, e.styleModel().frameStyle()));
     }},
    {"frameScale", [](const Editor& e) -> Value { return e.styleModel().frameScale(); },
     [](Editor& e, const Value& v) { e.styleModel().set_frameScale(v.toDouble()); },
     &frameScaleRange},
    {"cornerRadius", [](const Editor& e) -> Value { return e.styleModel().mockup().cornerRadius; },
     [](Editor& e, const Value& v) {
         changeMockup(e, [&](auto& m) { m.cornerRadius = v.toDouble(); });
     },
     &MockupSettings::cornerRadiusRange},
    {"shadow", [](const Editor& e) -> Value { return e.styleModel().mockup().shadowEnabled; },
     [](Editor& e, const Value& v) {
         changeMockup(e, [&](auto& m) { m.shadowEnabled = v.toBool(); });
     }},
    {"shadowIntensity",
     [](const Editor& e) -> Value { return rawName(e.styleModel().mockup().shadowIntensity); },
     [](Editor& e, const Value& v) {
         changeMockup(e, [&](auto& m) { m.shadowIntensity = enumOf(v, m.shadowIntensity); });
     }},
    {"light", [](const Editor& e) -> Value { return rawName(e.styleModel().mockup().lightSource); },
     [](Editor& e, const Value& v) {
         changeMockup(e, [&](auto& m) { m.lightSource = enumOf(v, m.lightSource); });
     }},
    {"watermark", [](const Editor& e) -> Value { return e.watermarkVM().isEnabled(); },
     [](Editor& e, const Value& v) { e.watermarkVM().set_isEnabled(v.toBool()); }},
    {"watermarkType", [](const Editor& e) -> Value { return rawName(watermarkOf(e).type); },
     [](Editor& e, const Value& v) {
         changeWatermark(e, [&](auto& w) { w.type = enumOf(v, w.type); });
     }},
    {"watermarkFont", [](const Editor& e) -> Value { return watermarkOf(e).fontName; },
     [](Editor& e, const Value& v) {
         changeWatermark(e, [&](auto& w) { w.fontName = v.toString(); });
     }},
    {"watermarkOffsetX", [](const Editor& e) -> Value { return watermarkOf(e).offsetX; },
     [](Editor& e, const Value& v) {
         changeWatermark(e, [&](auto& w) { w.offsetX = v.toDouble(); });
     },
     &WatermarkSettings::offsetRange},
    {"watermarkOffsetY", [](const Editor& e) -> Value { return watermarkOf(e).offsetY; },
     [](Editor& e, const Value& v) {
         changeWatermark(e, [&](auto& w) { w.offsetY = v.toDouble(); });
     },
     &WatermarkSettings::offsetRange},
    {"watermarkText", [](const Editor& e) -> Value { return watermarkOf(e).textContent; },
     [](Editor& e, const Value& v) {
         changeWatermark(e, [&](auto& w) { w.textContent = v.toString(); });
     }},
    {"watermarkPosition", [](const Editor& e) -> Value { return rawName(watermarkOf(e).position); },
     [](Editor& e, const Value& v) {
         changeWatermark(e, [&](auto& w) { w.position = enumOf(v, w.position); });
     }},
    {"watermarkOpacity", [](const Editor& e) -> Value { return watermarkOf(e).opacity; },
     [](Editor& e, const Value& v) {
         changeWatermark(e, [&](auto& w) { w.opacity = v.toDouble(); });
     },
     &WatermarkSettings::opacityRange},
    {"watermarkScale", [](const Editor& e) -> Value { return watermarkOf(e).scale; },
     [](Editor& e, const Value& v) {
         changeWatermark(e, [&](auto& w) { w.scale = v.toDouble(); });
     },
     &WatermarkSettings::scaleRange},
    {"watermarkColor", [](const Editor& e) -> Value { return watermarkOf(e).textColor.toQColor(); },
     [](Editor& e, const Value& v) {
         changeWatermark(e, [&](auto& w) { w.textColor = codable(v); });
     }},
};

}  // namespace

CodableColor codableColor(const QColor& color) {
    const QColor rgb = color.toRgb();
    return {rgb.redF(), rgb.greenF(), rgb.blueF(), rgb.alphaF()};
}

QVariantMap styleFields(const EditorViewModel& editor) {
    QVariantMap values;
    for (const StyleField& field : fields)
        values.insert(QString::fromLatin1(field.name), field.get(editor));
    return values;
}

QVariantMap styleRange(const QString& name) {
    for (const StyleField& field : fields) {
        if (name != QLatin1String(field.name) || !field.range) continue;
        return {{QStringLiteral("least"), field.range->least},
                {QStringLiteral("greatest"), field.range->greatest},
                {QStringLiteral("standard"), field.range->standard}};
    }
    return {};
}

bool setStyleField(EditorViewModel& editor, const QString& name, const QVariant& value) {
    for (const StyleField& field : fields) {
        if (name != QLatin1String(field.name) || !field.set) continue;
        field.set(editor, field.range ? field.range->clamped(value.toDouble()) : value);
        return true;
    }
    return false;
}

}  // namespace kestrio
