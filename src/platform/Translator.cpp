#include "platform/Translator.h"

#include "core/Localisation.h"

namespace kestrio {

QString TranslationError::errorDescription() const {
    switch (which_) {
        case Case::unsupportedPair:
            return Kestrio::tr("This language pair isn't supported.");
        case Case::failed:
            return Kestrio::tr("No translation was returned.");
    }
    return {};
}

}  // namespace kestrio
