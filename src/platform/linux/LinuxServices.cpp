#include "core/Localisation.h"
#include "platform/PlatformServices.h"
#include "platform/linux/DBusFileReveal.h"
#include "platform/linux/PortalAppearance.h"
#include "platform/linux/PsiMemoryPressure.h"
#include "platform/linux/QtAlerts.h"
#include "platform/linux/QtDisplays.h"
#include "platform/linux/QtFileDialogs.h"
#include "platform/linux/QtPasteboard.h"
#include "platform/linux/QtStatusItem.h"
#include "platform/linux/SessionBus.h"
#include "platform/linux/TextPasting.h"
#include "platform/linux/ThemeSounds.h"
#include "platform/linux/XdgLoginItem.h"
#include "platform/linux/recognition/EngineTextRecognizer.h"
#include "platform/linux/share/XdgSharing.h"
#include "platform/linux/translation/ApertiumTranslator.h"
#include "platform/linux/translation/Cld2LanguageIdentifier.h"
#include "platform/linux/x11/X11FloatingWindows.h"
#include "platform/linux/x11/X11GlobalHotkeys.h"
#include "platform/linux/x11/X11ScreenGrabber.h"
#include "platform/linux/x11/X11ScreenPermission.h"
#include "platform/linux/x11/X11ScreenStream.h"
#include "platform/linux/x11/X11SyntheticScroll.h"
#include "platform/linux/x11/X11WindowList.h"
#include "platform/linux/x11/XServerCheck.h"

namespace kestrio {

void preparePlatform() {
    avoidHangingSessionBus();
    // Qt connects in the same way; its answer to a refusal is the end of the process.
    if (isX11Chosen() && !waitForXServer()) throw DisplayRefusal();
}

QString DisplayRefusal::errorDescription() const {
    return Kestrio::tr(
        "the display refuses the connection; it may serve too many programs, so close some and try "
        "again");
}

PlatformServices makePlatformServices() {
    const auto xServer = std::make_shared<XcbConnection>();  // opened by the first that asks it
    PlatformServices services;
    const auto pasteboard = std::make_shared<QtPasteboard>();
    TextPasting::install(pasteboard);
    services.pasteboard = pasteboard;
    services.memoryPressure = std::make_shared<PsiMemoryPressure>();
    services.fileDialogs = std::make_shared<QtFileDialogs>();
    services.fileReveal = std::make_shared<DBusFileReveal>();
    services.appearance = std::make_shared<PortalAppearance>();
    services.floatingWindows = std::make_shared<X11FloatingWindows>();
    services.displays = std::make_shared<QtDisplays>(xServer);
    services.screenGrabber = std::make_shared<X11ScreenGrabber>();
    services.windowList = std::make_shared<X11WindowList>(xServer, services.displays);
    services.screenPermission = std::make_shared<X11ScreenPermission>(xServer);
    services.globalHotkeys = std::make_shared<X11GlobalHotkeys>();
    services.statusItem = std::make_shared<QtStatusItem>(xServer);
    services.alerts = std::make_shared<QtAlerts>();
    services.loginItem = std::make_shared<XdgLoginItem>();
    services.sounds = std::make_shared<ThemeSounds>();
    services.sharing = std::make_shared<XdgSharing>();
    services.syntheticScroll = std::make_shared<X11SyntheticScroll>(xServer, services.displays);
    services.textRecognizer = makeTextRecognizer();
    services.languageIdentifier = std::make_shared<Cld2LanguageIdentifier>();
    services.translator = std::make_shared<ApertiumTranslator>();
    services.makeScreenStream = [displays = services.displays] {
        return std::make_shared<X11ScreenStream>(displays);
    };
    installX11KeyLookup();
    return services;
}

std::shared_ptr<TextRecognizer> makeTextRecognizer() {
    return std::make_shared<EngineTextRecognizer>(recognitionFiles());
}

std::shared_ptr<Pasteboard> makePasteboard() {
    return std::make_shared<QtPasteboard>();
}

}  // namespace kestrio
