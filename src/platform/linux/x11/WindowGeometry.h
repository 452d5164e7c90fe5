#pragma once

#include "platform/linux/x11/XcbConnection.h"

#include <QRect>

namespace kestrio {

/// What a user takes for the window, in pixels: the client's own rectangle `client` with the
/// borders that the window manager put around it (`frameExtents`: left, right, top, bottom; may be
/// empty) and without the shadow that the client draws itself (`shadowExtents`, in the same order).
QRect visibleRectangle(QRect client, const std::vector<std::uint32_t>& frameExtents,
                       const std::vector<std::uint32_t>& shadowExtents);

}  // namespace kestrio
