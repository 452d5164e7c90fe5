#pragma once

#include "library/drafts/DraftService.h"
#include "library/export/PictureExporter.h"
#include "library/pins/PinnedScreenshotCoordinator.h"
#include "platform/PlatformServices.h"
#include "render/ImageRendererService.h"
#include "render/enhance/AIEnhancementService.h"
#include "render/stores/EditorStylePersistenceService.h"
#include "render/stores/ThemeStorageService.h"
#include "settings/AppSettingsService.h"
#include "text/recognition/OCRServiceProtocol.h"
#include "text/redaction/RedactionService.h"
#include "text/translation/OCRTranslationService.h"

namespace kestrio {

/// What an editor works with.
struct EditorServices {
    std::shared_ptr<ImageRendererServiceProtocol> imageRenderer;
    std::shared_ptr<PictureExporterProtocol> exporter;
    std::shared_ptr<EditorStylePersistenceServiceProtocol> stylePersistence;
    std::shared_ptr<ThemeStorageServiceProtocol> themes;
    std::shared_ptr<WatermarkServiceProtocol> watermark;
    std::shared_ptr<AIEnhancementServiceProtocol> enhancement;
    std::shared_ptr<SensitiveInfoDetectorProtocol> detector;  ///< may be null: nothing is searched
    std::shared_ptr<RedactionServiceProtocol> redaction;      ///< null only where `detector` is
    std::shared_ptr<UserDefaults> userDefaults;
    std::shared_ptr<Pasteboard> pasteboard;
    std::shared_ptr<MemoryPressure> memoryPressure;  ///< may be null
    std::shared_ptr<AppSettingsServiceProtocol> settings;
    std::shared_ptr<FileDialogs> fileDialogs;
    std::shared_ptr<FileReveal> fileReveal;
    std::shared_ptr<Appearance> appearance;  ///< may be null: light, with motion
    std::shared_ptr<Sharing> sharing;        ///< may be null: only files are copied
    std::shared_ptr<PinnedScreenshotCoordinatorProtocol> pins;  ///< may be null: nothing is pinned
    std::shared_ptr<DraftService> drafts;     ///< may be null: nothing is kept on the disk
    std::shared_ptr<OCRServiceProtocol> ocr;  ///< may be null: nothing is read
    std::shared_ptr<OCRTranslationServiceProtocol> translation;  ///< may be null
};

/// The real ones, on a desktop's services and the user's settings.
EditorServices makeEditorServices(const PlatformServices& platform,
                                  std::shared_ptr<UserDefaults> userDefaults);

}  // namespace kestrio
