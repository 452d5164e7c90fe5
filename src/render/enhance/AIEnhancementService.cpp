#include "render/enhance/AIEnhancementService.h"

#include "render/enhance/Enhancement.h"

namespace kestrio {

Image AIEnhancementService::enhance(const Image& image, AIEnhancementMode mode, double intensity) {
    return enhanced(image, mode, intensity);
}

Task<Image> AIEnhancementService::enhanceInBackground(Image image, AIEnhancementMode mode,
                                                      double intensity, std::stop_token stop) {
    // The work holds nothing of this service, which may be gone before it is done.
    auto work = [image = std::move(image), mode, intensity, stop] {
        throwIfStopped(stop);
        return enhanced(image, mode, intensity);
    };
    const auto result = runInBackground(std::move(work));
    Image picture = co_await result;
    throwIfStopped(stop);
    co_return picture;
}

}  // namespace kestrio
