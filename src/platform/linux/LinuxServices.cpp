#include "platform/PlatformServices.h"
#include "platform/linux/DBusFileReveal.h"
#include "platform/linux/PsiMemoryPressure.h"
#include "platform/linux/QtFileDialogs.h"
#include "platform/linux/QtPasteboard.h"

namespace kestrio {

PlatformServices makePlatformServices() {
    PlatformServices services;
    services.pasteboard = std::make_shared<QtPasteboard>();
    services.memoryPressure = std::make_shared<PsiMemoryPressure>();
    services.fileDialogs = std::make_shared<QtFileDialogs>();
    services.fileReveal = std::make_shared<DBusFileReveal>();
    return services;
}

}  // namespace kestrio
