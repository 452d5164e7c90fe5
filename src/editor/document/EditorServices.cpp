#include "editor/document/EditorServices.h"

#include "text/recognition/OCRService.h"

namespace kestrio {

EditorServices makeEditorServices(const PlatformServices& platform,
                                  std::shared_ptr<UserDefaults> userDefaults) {
    EditorServices services;
    services.watermark = std::make_shared<WatermarkService>(userDefaults);
    services.imageRenderer = std::make_shared<ImageRendererService>(services.watermark);
    services.exporter = std::make_shared<PictureExporter>(platform.pasteboard);
    services.stylePersistence = std::make_shared<EditorStylePersistenceService>(userDefaults);
    services.themes = std::make_shared<ThemeStorageService>(userDefaults);
    services.enhancement = std::make_shared<AIEnhancementService>();
    services.ocr = std::make_shared<OCRService>(platform.textRecognizer);
    services.detector = std::make_shared<SensitiveInfoDetector>(
        services.ocr,
        std::make_shared<PatternMatcher>(std::make_shared<PatternStorageService>(userDefaults)));
    services.redaction = std::make_shared<RedactionService>();
    services.settings = std::make_shared<AppSettingsService>(userDefaults);
    services.userDefaults = std::move(userDefaults);
    services.pasteboard = platform.pasteboard;
    services.memoryPressure = platform.memoryPressure;
    services.fileDialogs = platform.fileDialogs;
    services.fileReveal = platform.fileReveal;
    services.sharing = platform.sharing;
    services.appearance = platform.appearance;
    services.translation =
        std::make_shared<OCRTranslationService>(platform.translator, platform.languageIdentifier);
    return services;
}

}  // namespace kestrio
