#include "platform/Sharing.h"

#include "core/Localisation.h"

namespace kestrio {

QString SharingError::errorDescription() const {
    switch (which_) {
        case Case::noMailProgram:
            return Kestrio::tr("there is no mail program; install one, and xdg-utils with it");
        case Case::programGone:
            return Kestrio::tr("the program is no longer installed");
        case Case::notStarted:
            return Kestrio::tr("%1 could not be started").arg(program_);
    }
    return {};
}

}  // namespace kestrio
