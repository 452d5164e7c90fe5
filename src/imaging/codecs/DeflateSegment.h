#pragma once

#include <vector>

#include <QtGlobal>

namespace kestrio {

/// Deflate streams end in a block that is marked as the last. This clears that mark and closes the
/// stream on a byte border with an empty stored block, so that another stream can follow directly:
/// that is how pieces which were compressed on several cores become one stream. `stream` is a
/// whole, valid deflate stream (RFC 1951). Its symbols are stepped over, not expanded, which takes
/// a small part of the time that compressing them took.
void makeContinuable(std::vector<uchar>& stream);

}  // namespace kestrio
