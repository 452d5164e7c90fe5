#pragma once

#include "platform/LanguageIdentifier.h"
#include "platform/Translator.h"
#include "text/translation/OCRTranslation.h"

#include <memory>

namespace kestrio {

/// Translation of recognised blocks as views use it. Main thread only.
class OCRTranslationServiceProtocol {
  public:
    virtual ~OCRTranslationServiceProtocol() = default;

    /// What can be translated into at present, by name; empty where no engine is installed. Throws
    /// Cancelled.
    virtual Task<std::vector<TranslationLanguageOption>> supportedLanguages(
        std::stop_token stop) = 0;
    /// Delivers one event for each request, as soon as its answer is known. A failure stays with
    /// its block; nothing is thrown but Cancelled. An empty `target` is none.
    virtual Task<> translate(std::vector<OCRTranslationRequest> requests, QString target,
                             std::function<void(OCRTranslationEvent)> deliver,
                             std::stop_token stop) = 0;
};

/// By the translator of the desktop.
class OCRTranslationService : public OCRTranslationServiceProtocol {
  public:
    /// Both may be null, where the desktop has none.
    OCRTranslationService(std::shared_ptr<Translator> translator,
                          std::shared_ptr<LanguageIdentifier> identifier)
        : translator_(std::move(translator)), identifier_(std::move(identifier)) {}

    Task<std::vector<TranslationLanguageOption>> supportedLanguages(std::stop_token stop) override;
    Task<> translate(std::vector<OCRTranslationRequest> requests, QString target,
                     std::function<void(OCRTranslationEvent)> deliver,
                     std::stop_token stop) override;

  private:
    const std::shared_ptr<Translator> translator_;
    const std::shared_ptr<LanguageIdentifier> identifier_;
};

}  // namespace kestrio
