#include "render/enhance/AIEnhancementError.h"

#include "core/Localisation.h"

namespace kestrio {

QString AIEnhancementError::errorDescription() const {
    switch (case_) {
        case Case::invalidImage:
            return localised("Invalid image input");
        case Case::processingFailed:
            return localised("AI enhancement failed");
    }
    return {};
}

}  // namespace kestrio
