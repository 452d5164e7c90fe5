#pragma once

#include "platform/Translator.h"

#include <QMap>
#include <algorithm>

namespace kestrio {

/// Translates what a test has written into `translations`; a text that is not there fails, as one
/// does that a real engine gives nothing for.
class ScriptedTranslator : public Translator {
  public:
    std::vector<LanguagePair> installed{{QStringLiteral("en"), QStringLiteral("es")},
                                        {QStringLiteral("es"), QStringLiteral("en")}};
    QMap<QString, QString> translations;
    std::chrono::milliseconds duration{0};  ///< how long each text takes
    std::vector<TranslationRequest> requests;
    int stoppedCount = 0;

    Task<std::vector<LanguagePair>> pairs(std::stop_token stop) override {
        const auto pause = sleepFor(std::chrono::milliseconds(0), std::move(stop));
        co_await pause;
        std::vector<LanguagePair> listed = installed;
        co_return listed;
    }

    Task<> translate(TranslationRequest request, std::function<void(TranslatedText)> answered,
                     std::stop_token stop) override {
        requests.push_back(request);
        if (std::ranges::find(installed, request.pair) == installed.end())
            throw TranslationError(TranslationError::Case::unsupportedPair);
        for (int index = 0; index < request.texts.size(); ++index) {
            try {
                const auto work = sleepFor(duration, stop);
                co_await work;
            } catch (const Cancelled&) {
                ++stoppedCount;
                throw;
            }
            const QString text = translations.value(request.texts[index]);
            const TranslationError failure(TranslationError::Case::failed);
            answered({index, text, text.isEmpty() ? failure.errorDescription() : QString()});
        }
    }
};

}  // namespace kestrio
