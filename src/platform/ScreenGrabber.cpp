#include "platform/ScreenGrabber.h"

#include "core/Localisation.h"

namespace kestrio {

QString ScreenGrabError::errorDescription() const {
    return which_ == Case::windowGone ? Kestrio::tr("the window has gone")
                                      : Kestrio::tr("the screen cannot be read");
}

}  // namespace kestrio
