#include "platform/PlatformServices.h"
#include "platform/linux/DBusFileReveal.h"
#include "platform/linux/PortalAppearance.h"
#include "platform/linux/PsiMemoryPressure.h"
#include "platform/linux/QtFileDialogs.h"
#include "platform/linux/QtPasteboard.h"

namespace kestrio {

PlatformServices makePlatformServices() {
    PlatformServices services;
    services.pasteboard = makePasteboard();
    services.memoryPressure = std::make_shared<PsiMemoryPressure>();
    services.fileDialogs = std::make_shared<QtFileDialogs>();
    services.fileReveal = std::make_shared<DBusFileReveal>();
    services.appearance = std::make_shared<PortalAppearance>();
    return services;
}

std::shared_ptr<Pasteboard> makePasteboard() {
    return std::make_shared<QtPasteboard>();
}

}  // namespace kestrio
