#include "platform/PlatformServices.h"
#include "platform/linux/PsiMemoryPressure.h"
#include "platform/linux/QtPasteboard.h"

namespace kestrio {

PlatformServices makePlatformServices() {
    return {std::make_shared<QtPasteboard>(), std::make_shared<PsiMemoryPressure>()};
}

}  // namespace kestrio
