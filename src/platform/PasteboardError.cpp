#include "platform/PasteboardError.h"

#include "core/Localisation.h"

namespace kestrio {

QString PasteboardError::errorDescription() const {
    switch (which_) {
        case Case::noConnection:
            return Kestrio::tr("The clipboard cannot be read: the display takes no more programs");
        case Case::notAnswering:
            return Kestrio::tr("The program that holds the clipboard does not answer");
        case Case::tooLarge:
            return Kestrio::tr("What is on the clipboard is too large");
        case Case::notKept:
            return Kestrio::tr("What was copied could not be kept on the clipboard");
    }
    return {};
}

QString PasteboardError::fullDescription() const {
    if (reason_.isEmpty()) return errorDescription();
    return errorDescription() + QStringLiteral(" (%1)").arg(reason_);
}

}  // namespace kestrio
