#pragma once

#include "platform/Appearance.h"
#include "platform/FileDialogs.h"
#include "platform/FileReveal.h"
#include "platform/MemoryPressure.h"
#include "platform/Pasteboard.h"

#include <memory>

namespace kestrio {

/// One of each service of the desktop. A platform fills it in its factory.
struct PlatformServices {
    std::shared_ptr<Pasteboard> pasteboard;
    std::shared_ptr<MemoryPressure> memoryPressure;
    std::shared_ptr<FileDialogs> fileDialogs;
    std::shared_ptr<FileReveal> fileReveal;
    std::shared_ptr<Appearance> appearance;
};

/// The services of the desktop that the program runs on. Needs a QApplication.
PlatformServices makePlatformServices();

/// The clipboard alone, for work without windows that needs to know nothing else of the desktop.
/// Needs a GUI application.
std::shared_ptr<Pasteboard> makePasteboard();

}  // namespace kestrio
