#pragma once

#include "library/color/ColorFormat.h"
#include "library/color/ColorHistoryService.h"
#include "library/color/ColorPickerService.h"
#include "platform/Pasteboard.h"

#include <QTimer>

namespace kestrio {

/// The eyedropper: the colour under the pointer, picking it, and copying it as a text. The view
/// maps its pointer to points of the picture, from the picture's top left corner. Main thread.
class ColorPickerViewModel : public QObject {
    Q_OBJECT
    PUBLISHED(bool, isColorPickingMode, false)
    PUBLISHED(QPointF, cursorPosition, {})
    PUBLISHED(std::optional<CodableColor>, currentColor, std::nullopt)
    PUBLISHED(std::optional<PickedColor>, lastPickedColor, std::nullopt)
    PUBLISHED(ColorFormat, currentFormat, ColorFormat::hex)
    PUBLISHED_WRITABLE(bool, showMagnifier, true)
    /// Points of the magnifier a pixel of the picture.
    PUBLISHED_WRITABLE(double, magnificationLevel, 8)
    PUBLISHED(std::vector<PickedColor>, colorHistory, {})
    PUBLISHED(QString, toastMessage, {})
    PUBLISHED(bool, showCopiedFeedback, false)
    Q_PROPERTY(QColor currentSwatch READ currentSwatch NOTIFY currentColorChanged)
    Q_PROPERTY(QString currentText READ currentText NOTIFY currentTextChanged)

  public:
    ColorPickerViewModel(std::shared_ptr<ColorHistoryService> history,
                         std::shared_ptr<UserDefaults> userDefaults,
                         std::shared_ptr<Pasteboard> pasteboard, QObject* parent = nullptr);

    Q_INVOKABLE void startPicking() { set_isColorPickingMode(true); }
    Q_INVOKABLE void stopPicking() { set_isColorPickingMode(false); }

    /// Follows the pointer while the mode is on.
    void movePointer(const Image& image, QPointF point);
    /// Picks the colour under the pointer, which ends the mode; with `forBackdrop` the backdrop
    /// asks for it too. Outside the picture nothing happens.
    void pick(const Image& image, QPointF point, bool forBackdrop);
    Q_SIGNAL void colorPicked(const kestrio::PickedColor& color);
    Q_SIGNAL void backdropColorPicked(const kestrio::PickedColor& color);

    /// Shows a colour from elsewhere, its components raised to 0 where they are below it.
    void showColor(const CodableColor& color);

    /// Chooses how colours are written, for later runs too.
    void chooseFormat(ColorFormat format);
    /// Puts the current colour's text on the clipboard and says so for a moment.
    Q_INVOKABLE void copyCurrentColor();

    /// Transparent without a current colour.
    QColor currentSwatch() const;
    /// The current colour in the current format, or that there is none.
    QString currentText() const;
    Q_SIGNAL void currentTextChanged();

  private:
    void endFeedback();

    std::shared_ptr<ColorHistoryService> history_;
    std::shared_ptr<UserDefaults> userDefaults_;
    std::shared_ptr<Pasteboard> pasteboard_;
    ColorPickerService sampler_;
    QTimer feedbackTimer_;
};

}  // namespace kestrio
