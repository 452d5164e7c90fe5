#include "text/translation/OCRTranslationService.h"

#include "core/LanguageTag.h"
#include "core/Localisation.h"
#include "text/translation/TranslationBatches.h"

#include <QLocale>
#include <algorithm>

namespace kestrio {

namespace {

using Deliver = std::function<void(OCRTranslationEvent)>;
using Event = OCRTranslationEvent;

template <typename Outcome>
void deliverAll(const std::vector<OCRTranslationRequest>& requests, std::size_t first,
                const Outcome& outcome, const Deliver& deliver) {
    for (std::size_t index = first; index < requests.size(); ++index)
        deliver({requests[index].id, outcome});
}

TranslationRequest requestFor(const OCRTranslationBatch& batch, const QString& target) {
    TranslationRequest request{{batch.sourceLanguageIdentifier, target}, {}};
    for (const OCRTranslationRequest& each : batch.requests)
        request.texts << each.sourceText;
    return request;
}

Event eventFor(const OCRTranslationBatch& batch, const QString& target,
               const TranslatedText& answer) {
    const QUuid id = batch.requests[std::size_t(answer.index)].id;
    if (!answer.failure.isEmpty()) return {id, Event::Failed{answer.failure}};
    return {id, Event::Translated{answer.text, batch.sourceLanguageIdentifier, target}};
}

Task<> translateBatch(std::shared_ptr<Translator> translator, OCRTranslationBatch batch,
                      QString target, Deliver deliver, std::stop_token stop) {
    std::size_t answeredCount = 0;
    const auto answered = [&](const TranslatedText& answer) {
        ++answeredCount;
        deliver(eventFor(batch, target, answer));
    };
    QString failure = TranslationError(TranslationError::Case::failed).errorDescription();
    try {
        auto translating =
            translator->translate(requestFor(batch, target), answered, std::move(stop));
        co_await translating;
    } catch (const Cancelled&) {
        throw;
    } catch (const std::exception& error) {
        failure = describeFailure(error);
    }
    // Answers come in the order of their texts.
    deliverAll(batch.requests, answeredCount, Event::Failed{failure}, deliver);
}

}  // namespace

Task<std::vector<TranslationLanguageOption>> OCRTranslationService::supportedLanguages(
    std::stop_token stop) {
    std::vector<TranslationLanguageOption> options;
    if (!translator_ || !identifier_) co_return options;
    auto listing = translator_->pairs(std::move(stop));
    const std::vector<LanguagePair> pairs = co_await listing;
    for (const LanguagePair& pair : pairs) {
        const TranslationLanguageOption option{pair.target};
        if (std::ranges::find(options, option) == options.end()) options.push_back(option);
    }
    std::ranges::sort(options, [](const auto& left, const auto& right) {
        return left.displayName().localeAwareCompare(right.displayName()) < 0;
    });
    co_return options;
}

Task<> OCRTranslationService::translate(std::vector<OCRTranslationRequest> requests, QString target,
                                        std::function<void(OCRTranslationEvent)> deliver,
                                        std::stop_token stop) {
    const auto translator = translator_;
    const auto identifier = identifier_;
    if (target.isEmpty() || !translator || !identifier) {
        const QString reason = target.isEmpty()
                                   ? Kestrio::tr("Choose a target language.")
                                   : Kestrio::tr("Translation session is unavailable.");
        deliverAll(requests, 0, Event::Failed{reason}, deliver);
        co_return;
    }
    for (const OCRTranslationBatch& batch : batchesOf(requests, *identifier)) {
        const QString& source = batch.sourceLanguageIdentifier;
        if (mainLanguage(source) == mainLanguage(target)) {
            deliverAll(batch.requests, 0, Event::SameLanguage{source}, deliver);
            continue;
        }
        auto translating = translateBatch(translator, batch, target, deliver, stop);
        co_await translating;
    }
}

}  // namespace kestrio
