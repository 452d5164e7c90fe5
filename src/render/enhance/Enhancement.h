#pragma once

#include "imaging/Image.h"
#include "render/enhance/AIEnhancementMode.h"

namespace kestrio {

/// The picture run through the filters of a mode. `intensity` is 0 to 1; 0, less or not a number
/// changes nothing but in `upscale`, which doubles the pixels and the points whatever it is. Every
/// other mode keeps the size. Blocks; any thread. Throws AIEnhancementError.
Image enhanced(const Image& image, AIEnhancementMode mode, double intensity);

}  // namespace kestrio
