#include "render/stores/EditorStylePersistenceService.h"

namespace kestrio {

namespace {
const QString styleKey = QStringLiteral("com.kestrio.editorStyleSettings");
}

std::optional<EditorStyleSettings> EditorStylePersistenceService::load() {
    queue_.sync([] {});  // what is still being encoded
    const auto data = userDefaults_->data(styleKey);
    if (!data) return std::nullopt;
    try {
        return decodeJsonText<EditorStyleSettings>(*data);
    } catch (const JsonError&) {
        return std::nullopt;
    }
}

void EditorStylePersistenceService::save(const EditorStyleSettings& style) {
    queue_.async([style, defaults = userDefaults_] {
        try {
            defaults->setData(styleKey, encodeJsonText(style));
        } catch (const JsonError&) {
            // The last style that could be written stays.
        }
    });
}

}  // namespace kestrio
