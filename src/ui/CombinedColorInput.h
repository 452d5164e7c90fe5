#pragma once

#include "core/EnumTable.h"
#include "core/Published.h"

#include <QColor>
#include <QObject>

namespace kestrio {

/// Whether a colour is typed as hex digits or as three numbers.
enum class ColorInputMode { hex, rgb };

inline constexpr EnumTable<ColorInputMode, 2> colorInputModes = {{
    {ColorInputMode::hex, "hex", "Hex"},
    {ColorInputMode::rgb, "rgb", "RGB"},
}};
constexpr const auto& enumTable(ColorInputMode) {
    return colorInputModes;
}

/// The fields in which a colour is typed. Main thread.
class CombinedColorInput : public QObject {
    Q_OBJECT
    PUBLISHED_WRITABLE(QColor, color, Qt::black)
    PUBLISHED(ColorInputMode, inputMode, ColorInputMode::hex)
    /// What is wrong with the digits; empty where nothing is.
    PUBLISHED(QString, errorMessage, {})
    Q_PROPERTY(QString modeLabel READ modeLabel NOTIFY inputModeChanged)

  public:
    using QObject::QObject;

    /// Takes the colour over where the text is one; else it stays.
    Q_INVOKABLE void enterHex(const QString& text);
    /// The same for three numbers.
    Q_INVOKABLE void enterRgb(const QString& red, const QString& green, const QString& blue);
    Q_INVOKABLE void switchMode();
    /// The name of the present mode.
    QString modeLabel() const { return displayName(inputMode()); }
};

}  // namespace kestrio
