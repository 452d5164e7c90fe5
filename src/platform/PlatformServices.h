#pragma once

#include "core/Error.h"
#include "platform/Alerts.h"
#include "platform/Appearance.h"
#include "platform/Displays.h"
#include "platform/FileDialogs.h"
#include "platform/FileReveal.h"
#include "platform/FloatingWindows.h"
#include "platform/GlobalHotkeys.h"
#include "platform/LanguageIdentifier.h"
#include "platform/LoginItem.h"
#include "platform/MemoryPressure.h"
#include "platform/Pasteboard.h"
#include "platform/ScreenGrabber.h"
#include "platform/ScreenPermission.h"
#include "platform/ScreenStream.h"
#include "platform/Sharing.h"
#include "platform/Sounds.h"
#include "platform/StatusItem.h"
#include "platform/SyntheticScroll.h"
#include "platform/TextRecognizer.h"
#include "platform/Translator.h"
#include "platform/WindowList.h"

#include <functional>
#include <memory>

namespace kestrio {

/// One of each service of the desktop. A platform fills it in its factory.
struct PlatformServices {
    std::shared_ptr<Pasteboard> pasteboard;
    std::shared_ptr<MemoryPressure> memoryPressure;
    std::shared_ptr<FileDialogs> fileDialogs;
    std::shared_ptr<FileReveal> fileReveal;
    std::shared_ptr<Appearance> appearance;
    std::shared_ptr<Displays> displays;
    std::shared_ptr<ScreenGrabber> screenGrabber;
    std::shared_ptr<WindowList> windowList;
    std::shared_ptr<ScreenPermission> screenPermission;
    std::shared_ptr<GlobalHotkeys> globalHotkeys;
    std::shared_ptr<FloatingWindows> floatingWindows;
    std::shared_ptr<StatusItem> statusItem;
    std::shared_ptr<Alerts> alerts;
    std::shared_ptr<LoginItem> loginItem;
    std::shared_ptr<Sounds> sounds;
    std::shared_ptr<Sharing> sharing;
    std::shared_ptr<SyntheticScroll> syntheticScroll;
    std::shared_ptr<TextRecognizer> textRecognizer;
    std::shared_ptr<LanguageIdentifier> languageIdentifier;
    std::shared_ptr<Translator> translator;
    /// A stream for each use; empty where the platform has none.
    std::function<std::shared_ptr<ScreenStream>()> makeScreenStream;
};

/// Before the application object exists: keeps what would block its start for ever from being
/// asked, and makes sure that the display takes another program, for a few seconds if need be.
/// Takes no time on a desktop that works. Throws DisplayRefusal, where Qt would end the process
/// with a dump.
void preparePlatform();

class DisplayRefusal : public Error {
  public:
    QString errorDescription() const override;
};

/// The services of the desktop that the program runs on. Needs a QApplication.
PlatformServices makePlatformServices();

/// The clipboard alone, for work without windows that needs to know nothing else of the desktop.
/// Needs a GUI application.
std::shared_ptr<Pasteboard> makePasteboard();

/// Text recognition alone, for the same. Needs an application object.
std::shared_ptr<TextRecognizer> makeTextRecognizer();

}  // namespace kestrio
