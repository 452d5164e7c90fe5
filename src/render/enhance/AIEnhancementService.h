#pragma once

#include "core/Task.h"
#include "imaging/Image.h"
#include "render/enhance/AIEnhancementMode.h"

namespace kestrio {

/// Improves pictures by filters.
class AIEnhancementServiceProtocol {
  public:
    virtual ~AIEnhancementServiceProtocol() = default;

    /// The improved picture; see enhanced() in Enhancement.h. Blocks; any thread. Throws
    /// AIEnhancementError.
    virtual Image enhance(const Image& image, AIEnhancementMode mode, double intensity) = 0;

    /// The same off the main thread. Throws AIEnhancementError, and Cancelled where a stop was
    /// asked for before the work was done.
    virtual Task<Image> enhanceInBackground(Image image, AIEnhancementMode mode, double intensity,
                                            std::stop_token stop = {}) = 0;
};

/// Improves them on this computer, without a learned model.
class AIEnhancementService : public AIEnhancementServiceProtocol {
  public:
    Image enhance(const Image& image, AIEnhancementMode mode, double intensity) override;
    Task<Image> enhanceInBackground(Image image, AIEnhancementMode mode, double intensity,
                                    std::stop_token stop = {}) override;
};

}  // namespace kestrio
