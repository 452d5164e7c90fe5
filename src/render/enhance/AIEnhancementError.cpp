#include "render/enhance/AIEnhancementError.h"

#include "core/Localisation.h"

namespace kestrio {

QString AIEnhancementError::errorDescription() const {
    switch (case_) {
        case Case::invalidImage:
            return Kestrio::tr("Invalid image input");
        case Case::processingFailed:
            return Kestrio::tr("AI enhancement failed");
    }
    return {};
}

}  // namespace kestrio
