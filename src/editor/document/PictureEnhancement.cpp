#include "editor/document/PictureEnhancement.h"

#include "editor/document/EditorViewModel.h"
#include "imaging/ExportError.h"

#include <QPointer>

namespace kestrio {

/// The picture is being enhanced for as long as one of these lives.
class Enhancing {
  public:
    explicit Enhancing(PictureEnhancement* owner) : owner_(owner) {
        owner->set_isEnhancingImage(true);
    }
    ~Enhancing() {
        if (owner_) owner_->set_isEnhancingImage(false);
    }
    Q_DISABLE_COPY_MOVE(Enhancing)

  private:
    QPointer<PictureEnhancement> owner_;
};

PictureEnhancement::PictureEnhancement(EditorViewModel& editor,
                                       std::shared_ptr<AIEnhancementServiceProtocol> service)
    : editor_(editor), service_(std::move(service)) {}

Task<bool> PictureEnhancement::enhanceImage(AIEnhancementMode mode, double strength) {
    if (editor_.screenshot().isNull()) throw ExportError::renderingFailed();
    if (isEnhancingImage()) co_return false;
    const Enhancing enhancing(this);
    const QPointer<PictureEnhancement> self(this);
    const auto service = service_;
    const Image before = editor_.screenshot();
    auto work = service->enhanceInBackground(before, mode, std::clamp(strength, 0.0, 1.0));
    const Image enhanced = co_await work;
    if (!self || before.bitmap().cacheKey() != editor_.screenshot().bitmap().cacheKey())
        co_return false;
    if (!original_) setOriginal(before);
    editor_.replacePixels(enhanced);
    co_return true;
}

void PictureEnhancement::restoreOriginalImage() {
    if (!original_) return;
    const Image original = *original_;
    setOriginal(std::nullopt);
    editor_.replacePixels(original);
}

void PictureEnhancement::setOriginal(std::optional<Image> original) {
    original_ = std::move(original);
    Q_EMIT canRestoreOriginalImageChanged();
}

}  // namespace kestrio
