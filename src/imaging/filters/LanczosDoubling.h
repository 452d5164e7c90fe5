#pragma once

#include <QImage>

namespace kestrio {

/// The bitmap at twice its width and height, interpolated with Lanczos's kernel of three lobes (C.
/// Duchon, "Lanczos Filtering in One and Two Dimensions", 1979), in its own format. Beyond its
/// edges the bitmap continues with its outermost pixels. Null where it is null or where the result
/// would not fit into memory.
QImage doubledByLanczos(const QImage& bitmap);

}  // namespace kestrio
