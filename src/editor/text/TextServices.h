#pragma once

#include "platform/Pasteboard.h"
#include "settings/AppSettingsService.h"
#include "text/recognition/OCRServiceProtocol.h"
#include "text/translation/OCRTranslationService.h"

namespace kestrio {

/// What the text of a document is read, copied and translated with. Each may be null: it does
/// nothing then, or says that it cannot.
struct TextServices {
    std::shared_ptr<OCRServiceProtocol> ocr;
    std::shared_ptr<OCRTranslationServiceProtocol> translation;
    std::shared_ptr<AppSettingsServiceProtocol> settings;
    std::shared_ptr<Pasteboard> pasteboard;
};

}  // namespace kestrio
