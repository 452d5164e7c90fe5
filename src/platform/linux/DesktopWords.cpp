#include "platform/DesktopWords.h"

#include "core/Localisation.h"

namespace kestrio {

const DesktopWords& desktopWords() {
    static const DesktopWords words{Kestrio::tr("Show in File Manager"),
                                    Kestrio::tr("Open Settings"),
                                    Kestrio::tr("Settings → Privacy → Screen Sharing")};
    return words;
}

}  // namespace kestrio
