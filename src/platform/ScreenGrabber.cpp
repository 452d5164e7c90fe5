#include "platform/ScreenGrabber.h"

#include "core/Localisation.h"

namespace kestrio {

QString ScreenGrabError::errorDescription() const {
    return which_ == Case::windowGone ? localised("the window has gone")
                                      : localised("the screen cannot be read");
}

}  // namespace kestrio
