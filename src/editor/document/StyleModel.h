#pragma once

#include "core/Published.h"
#include "render/stores/EditorStylePersistenceService.h"
#include "render/style/Theme.h"

#include <QTimer>

namespace kestrio {

/// The style of one document. Stores what was chosen last, half a second after the last change.
/// Main thread.
class StyleModel : public QObject {
    Q_OBJECT
    PUBLISHED_WRITABLE(BackdropSettings, backdrop, {})
    PUBLISHED_WRITABLE(MockupSettings, mockup, {})
    PUBLISHED_WRITABLE(FrameStyle, frameStyle, FrameStyle::none)
    PUBLISHED_WRITABLE(double, frameScale, frameScaleRange.standard)
    PUBLISHED(std::optional<Theme>, currentTheme, std::nullopt)
    PUBLISHED(std::optional<QString>, currentPresetThemeId, std::nullopt)

  public:
    /// Backdrop, mockup, frame or its scale.
    Q_SIGNAL void styleChanged();

    explicit StyleModel(std::shared_ptr<EditorStylePersistenceServiceProtocol> persistence);

    EditorStyleSettings style() const { return {backdrop(), mockup(), frameStyle()}; }
    /// All but the frame's scale.
    void setStyle(const EditorStyleSettings& style);
    /// A style that was made for any picture, with what this document does about pixels.
    void setLook(EditorStyleSettings style);
    void applyPresetTheme(const PresetTheme& preset);
    void applyTheme(const Theme& theme);
    /// A style that no theme stands for.
    void applyLook(const EditorStyleSettings& style);
    /// Marks the built-in style that the present one is, if any.
    void showPreset();
    /// The style used last, else the first preset.
    void loadPersisted();
    /// Stores the style that still waits, and none afterwards.
    void cleanUp();

  private:
    void persist();

    std::shared_ptr<EditorStylePersistenceServiceProtocol> persistence_;
    QTimer persistenceDelay_;
    bool isCleanedUp_ = false;
};

}  // namespace kestrio
