#include "text/translation/TranslationBatches.h"

#include <QStringList>
#include <algorithm>

namespace kestrio {

QString detectedLanguage(const LanguageIdentifier& identifier, const QString& text,
                         const QString& fallback) {
    constexpr double leastConfidence = 0.5;
    const auto found = identifier.identify(text);
    return found && found->confidence >= leastConfidence ? found->identifier : fallback;
}

std::vector<OCRTranslationBatch> batchesOf(const std::vector<OCRTranslationRequest>& requests,
                                           const LanguageIdentifier& identifier) {
    QStringList texts;
    for (const OCRTranslationRequest& request : requests)
        texts << request.sourceText;
    const QString common = detectedLanguage(identifier, texts.join(u'\n'));
    std::vector<OCRTranslationBatch> batches;
    for (const OCRTranslationRequest& request : requests) {
        const QString language = detectedLanguage(identifier, request.sourceText, common);
        auto batch =
            std::ranges::find(batches, language, &OCRTranslationBatch::sourceLanguageIdentifier);
        if (batch == batches.end()) batch = batches.insert(batch, {language, {}});
        batch->requests.push_back(request);
    }
    return batches;
}

}  // namespace kestrio
