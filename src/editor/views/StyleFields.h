#pragma once

#include "editor/views/StyleField.h"

namespace kestrio {

/// A colour as views give it.
CodableColor codableColor(const QColor& color);

/// A field for QML and for the panels, with its row in StyleFields.cpp.
#define KESTRIO_STYLE_FIELD(Kind, name)                \
    Q_PROPERTY(kestrio::Kind* name READ name CONSTANT) \
  public:                                              \
    Kind* name() {                                     \
        return &name##_;                               \
    }                                                  \
                                                       \
  private:                                             \
    static const Kind::Row name##Row;                  \
    Kind name##_{editor_, name##Row, this};

/// The document's style as the panels see it. Main thread; the document outlives it.
class StyleFields : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    EditorViewModel& editor_;

    KESTRIO_STYLE_FIELD(StyleText, backdropType)
    KESTRIO_STYLE_FIELD(StyleColor, solidColor)
    KESTRIO_STYLE_FIELD(StyleText, gradient)
    KESTRIO_STYLE_FIELD(StyleColors, customGradient)
    KESTRIO_STYLE_FIELD(StyleSwitch, hasImage)
    KESTRIO_STYLE_FIELD(StyleNumber, imageBlur)
    KESTRIO_STYLE_FIELD(StyleNumber, imageOpacity)
    KESTRIO_STYLE_FIELD(StyleText, imageFit)
    KESTRIO_STYLE_FIELD(StyleNumber, opacity)
    KESTRIO_STYLE_FIELD(StyleNumber, padding)
    KESTRIO_STYLE_FIELD(StyleSwitch, keepPixels)
    KESTRIO_STYLE_FIELD(StyleNumber, blur)
    KESTRIO_STYLE_FIELD(StyleNumber, noise)
    KESTRIO_STYLE_FIELD(StyleNumber, saturation)
    KESTRIO_STYLE_FIELD(StyleText, effect)
    KESTRIO_STYLE_FIELD(StyleText, pattern)
    KESTRIO_STYLE_FIELD(StyleNumber, patternIntensity)
    KESTRIO_STYLE_FIELD(StyleNumber, patternThickness)
    KESTRIO_STYLE_FIELD(StyleColor, patternColor)
    KESTRIO_STYLE_FIELD(StyleText, overlay)
    KESTRIO_STYLE_FIELD(StyleNumber, overlayOpacity)
    KESTRIO_STYLE_FIELD(StyleText, overlayPosition)
    KESTRIO_STYLE_FIELD(StyleText, frame)
    KESTRIO_STYLE_FIELD(StyleNumber, frameScale)
    KESTRIO_STYLE_FIELD(StyleNumber, cornerRadius)
    KESTRIO_STYLE_FIELD(StyleSwitch, shadow)
    KESTRIO_STYLE_FIELD(StyleText, shadowIntensity)
    KESTRIO_STYLE_FIELD(StyleText, light)
    KESTRIO_STYLE_FIELD(StyleSwitch, watermark)
    KESTRIO_STYLE_FIELD(StyleText, watermarkType)
    KESTRIO_STYLE_FIELD(StyleText, watermarkFont)
    KESTRIO_STYLE_FIELD(StyleNumber, watermarkOffsetX)
    KESTRIO_STYLE_FIELD(StyleNumber, watermarkOffsetY)
    KESTRIO_STYLE_FIELD(StyleText, watermarkText)
    KESTRIO_STYLE_FIELD(StyleText, watermarkPosition)
    KESTRIO_STYLE_FIELD(StyleNumber, watermarkOpacity)
    KESTRIO_STYLE_FIELD(StyleNumber, watermarkScale)
    KESTRIO_STYLE_FIELD(StyleColor, watermarkColor)

  public:
    explicit StyleFields(EditorViewModel& editor, QObject* parent = nullptr);

  private:
    /// Its children are its fields and nothing else.
    void refresh();
};

}  // namespace kestrio
