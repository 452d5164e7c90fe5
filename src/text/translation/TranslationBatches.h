#pragma once

#include "platform/LanguageIdentifier.h"
#include "text/translation/OCRTranslation.h"

namespace kestrio {

/// Blocks that are written in one language.
struct OCRTranslationBatch {
    QString sourceLanguageIdentifier;  ///< empty where it is not known
    std::vector<OCRTranslationRequest> requests;
};

/// The language of a text, or `fallback` where the identifier is less than half sure.
QString detectedLanguage(const LanguageIdentifier& identifier, const QString& text,
                         const QString& fallback = {});

/// The requests by their languages, in the order in which these first appear. A block that is too
/// short to tell counts as what most of the text around it is.
std::vector<OCRTranslationBatch> batchesOf(const std::vector<OCRTranslationRequest>& requests,
                                           const LanguageIdentifier& identifier);

}  // namespace kestrio
