#pragma once

#include "core/CodableColor.h"
#include "imaging/Image.h"

namespace kestrio {

/// Finds the colours that make up a picture. Has no state; any thread.
class AutoColorMatchService {
  public:
    /// Up to `count` colours of the picture, the most frequent first: 400 samples of it, spread
    /// evenly, are counted by their channels in eighths, and each such bucket is shown by the first
    /// sample in it. Fully transparent samples do not count; grey alone where none does.
    std::vector<CodableColor> dominantColors(const Image& image, int count) const;

    /// The opaque colour a little nearer to mid grey, never pure black or white, so that a backdrop
    /// of it is calm under any picture.
    CodableColor softened(const CodableColor& color) const;
};

}  // namespace kestrio
