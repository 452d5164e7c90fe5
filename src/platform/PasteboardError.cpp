#include "platform/PasteboardError.h"

#include "core/Localisation.h"

namespace kestrio {

QString PasteboardError::errorDescription() const {
    switch (which_) {
        case Case::noConnection:
            return localised("The clipboard cannot be read: the display takes no more programs");
        case Case::notAnswering:
            return localised("The program that holds the clipboard does not answer");
        case Case::tooLarge:
            return localised("What is on the clipboard is too large");
        case Case::notKept:
            return localised("What was copied could not be kept on the clipboard");
    }
    return {};
}

QString PasteboardError::fullDescription() const {
    if (reason_.isEmpty()) return errorDescription();
    return errorDescription() + QStringLiteral(" (%1)").arg(reason_);
}

}  // namespace kestrio
