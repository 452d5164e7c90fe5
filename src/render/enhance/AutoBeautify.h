#pragma once

#include "imaging/Image.h"
#include "render/style/EditorStyleSettings.h"

namespace kestrio {

/// A finished style for a picture: its own main colour, softened, as backdrop, with padding, round
/// corners and shadow in proportion to its longer side in points.
EditorStyleSettings autoBeautified(const Image& image);

}  // namespace kestrio
