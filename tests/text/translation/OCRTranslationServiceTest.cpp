#include "text/translation/OCRTranslationService.h"

#include <gtest/gtest.h>
#include "support/ScriptedLanguageIdentifier.h"
#include "support/ScriptedTranslator.h"
#include "support/Waiting.h"
#include "text/translation/TranslationBatches.h"

namespace kestrio {
namespace {

using namespace std::chrono_literals;

const QString en = QStringLiteral("en");
const QString es = QStringLiteral("es");

struct OCRTranslationServiceTest : testing::Test {
    std::shared_ptr<ScriptedTranslator> translator = std::make_shared<ScriptedTranslator>();
    std::shared_ptr<ScriptedLanguageIdentifier> identifier =
        std::make_shared<ScriptedLanguageIdentifier>();
    OCRTranslationService service{translator, identifier};
    std::vector<OCRTranslationRequest> requests;
    std::vector<OCRTranslationEvent> events;

    OCRTranslationServiceTest() {
        translator->translations = {{QStringLiteral("house"), QStringLiteral("casa")},
                                    {QStringLiteral("tree"), QStringLiteral("\u00e1rbol")}};
        know("house", en);
        know("tree", en);
        know("perro", es);
        know("maison", QStringLiteral("fr"));
    }

    void know(const char* text, const QString& language, double confidence = 0.9) {
        identifier->hypotheses[QString::fromLatin1(text)] = {language, confidence};
    }
    void add(std::initializer_list<const char*> texts) {
        for (const char* text : texts)
            requests.push_back({QUuid::createUuid(), QString::fromLatin1(text)});
    }
    void translate(const QString& target, std::stop_token stop = {}) {
        runUntilDone(service.translate(
            requests, target, [this](OCRTranslationEvent event) { events.push_back(event); },
            std::move(stop)));
    }
    /// What became of the request: its translation, "=" and a language, or "!" and a failure.
    QString outcomeOf(std::size_t index) const {
        QStringList outcomes;
        for (const OCRTranslationEvent& event : events) {
            if (event.id != requests[index].id) continue;
            if (const auto* done = std::get_if<OCRTranslationEvent::Translated>(&event.outcome))
                outcomes << done->targetText;
            else if (const auto* same =
                         std::get_if<OCRTranslationEvent::SameLanguage>(&event.outcome))
                outcomes << u'=' + same->languageIdentifier;
            else
                outcomes << u'!' + std::get<OCRTranslationEvent::Failed>(event.outcome).message;
        }
        return outcomes.join(u'|');
    }
};

TEST_F(OCRTranslationServiceTest, HalfSureIsSureEnough) {
    know("weak", en, 0.49);
    know("strong", en, 0.5);
    EXPECT_EQ(detectedLanguage(*identifier, QStringLiteral("weak")), QString());
    EXPECT_EQ(detectedLanguage(*identifier, QStringLiteral("weak"), es), es);
    EXPECT_EQ(detectedLanguage(*identifier, QStringLiteral("strong"), es), en);
    EXPECT_EQ(detectedLanguage(*identifier, QStringLiteral("unknown"), es), es);
}

TEST_F(OCRTranslationServiceTest, BlocksGoByLanguageAndShortOnesWithTheWhole) {
    add({"house", "perro", "ok", "tree"});
    know("house\nperro\nok\ntree", en);
    const auto batches = batchesOf(requests, *identifier);
    ASSERT_EQ(batches.size(), 2U);
    EXPECT_EQ(batches[0].sourceLanguageIdentifier, en);
    ASSERT_EQ(batches[0].requests.size(), 3U);
    EXPECT_EQ(batches[0].requests[1].sourceText, QStringLiteral("ok"));
    EXPECT_EQ(batches[1].sourceLanguageIdentifier, es);
}

TEST_F(OCRTranslationServiceTest, EveryBlockGetsItsOwnOutcome) {
    add({"house", "perro", "maison", "tree", "12345"});
    know("flower", en);
    add({"flower"});
    translate(es);
    EXPECT_EQ(outcomeOf(0), QStringLiteral("casa"));
    EXPECT_EQ(outcomeOf(1), QStringLiteral("=es"));
    EXPECT_EQ(outcomeOf(2), QStringLiteral("!This language pair isn't supported."));
    EXPECT_EQ(outcomeOf(3), QStringLiteral("\u00e1rbol"));
    EXPECT_EQ(outcomeOf(4), QStringLiteral("!This language pair isn't supported."));
    EXPECT_EQ(outcomeOf(5), QStringLiteral("!No translation was returned."));
    EXPECT_EQ(events.size(), requests.size());
    // One call for each language that is not the target's.
    EXPECT_EQ(translator->requests.size(), 3U);
    EXPECT_EQ(translator->requests.front().texts.size(), 3);
}

TEST_F(OCRTranslationServiceTest, VariantsOfALanguageAreTheSame) {
    know("colour", QStringLiteral("en-GB"));
    add({"colour"});
    translate(QStringLiteral("en-US"));
    EXPECT_EQ(outcomeOf(0), QStringLiteral("=en-GB"));
}

TEST_F(OCRTranslationServiceTest, WithoutTargetOrEngineEveryBlockFails) {
    add({"house", "perro"});
    translate({});
    EXPECT_EQ(outcomeOf(0), QStringLiteral("!Choose a target language."));
    EXPECT_EQ(outcomeOf(1), outcomeOf(0));
    events.clear();
    OCRTranslationService none(nullptr, identifier);
    EXPECT_TRUE(runUntilDone(none.supportedLanguages({})).empty());
    runUntilDone(none.translate(
        requests, es, [this](OCRTranslationEvent event) { events.push_back(event); }, {}));
    EXPECT_EQ(outcomeOf(0), QStringLiteral("!Translation session is unavailable."));
}

TEST_F(OCRTranslationServiceTest, OffersEachReachableLanguageOnce) {
    translator->installed = {{en, es}, {QStringLiteral("fr"), es}, {es, QStringLiteral("ca")}};
    const auto options = runUntilDone(service.supportedLanguages({}));
    ASSERT_EQ(options.size(), 2U);
    EXPECT_NE(options[0], options[1]);
    for (const auto& option : options)
        EXPECT_TRUE(option.identifier == es || option.identifier == u"ca");
}

TEST_F(OCRTranslationServiceTest, LanguagesAreNamedInThatOfTheProgram) {
    const QLocale before;
    const auto nameOf = [](const char* code) {
        return TranslationLanguageOption{QString::fromLatin1(code)}.displayName();
    };
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(nameOf("es"), QStringLiteral("Spanisch"));
    QLocale::setDefault(QLocale(QLocale::Spanish));
    EXPECT_EQ(nameOf("en"), QStringLiteral("Ingl\u00e9s"));
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(nameOf("es"), QStringLiteral("Spanish"));
    EXPECT_NE(nameOf("en"), nameOf("en-US"));
    QLocale::setDefault(before);
}

TEST_F(OCRTranslationServiceTest, AStopEndsTheRun) {
    add({"house", "tree"});
    translator->duration = 10s;
    std::stop_source stop;
    QTimer::singleShot(20ms, [&] { stop.request_stop(); });
    EXPECT_THROW(translate(es, stop.get_token()), Cancelled);
    EXPECT_TRUE(waitUntil([this] { return translator->stoppedCount == 1; }));
    EXPECT_TRUE(events.empty());
}

}  // namespace
}  // namespace kestrio
