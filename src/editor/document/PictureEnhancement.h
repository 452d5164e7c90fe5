#pragma once

#include "editor/document/EditorServices.h"

namespace kestrio {

class EditorViewModel;

/// The enhancement of a document's picture, with the picture as it was before. Undo brings that
/// back, as restoreOriginalImage() does. Main thread.
class PictureEnhancement : public QObject {
    Q_OBJECT
    PUBLISHED(bool, isEnhancingImage, false)

  public:
    PictureEnhancement(EditorViewModel& editor,
                       std::shared_ptr<AIEnhancementServiceProtocol> service);

    /// False where the picture was replaced by another one meanwhile, which is left as it is.
    /// Throws AIEnhancementError, and ExportError::renderingFailed without a screenshot.
    Task<bool> enhanceImage(AIEnhancementMode mode, double strength);
    void restoreOriginalImage();
    bool canRestoreOriginalImage() const { return original_.has_value(); }
    Q_SIGNAL void canRestoreOriginalImageChanged();

    /// What the picture was before it was enhanced; none where it was not.
    const std::optional<Image>& original() const { return original_; }
    void setOriginal(std::optional<Image> original);

  private:
    friend class Enhancing;

    EditorViewModel& editor_;
    std::shared_ptr<AIEnhancementServiceProtocol> service_;
    std::optional<Image> original_;
};

}  // namespace kestrio
