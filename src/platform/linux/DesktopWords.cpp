#include "platform/DesktopWords.h"

#include "core/Localisation.h"

namespace kestrio {

const DesktopWords& desktopWords() {
    static const DesktopWords words{localised("Show in File Manager"), localised("Open Settings"),
                                    localised("Settings → Privacy → Screen Sharing")};
    return words;
}

}  // namespace kestrio
