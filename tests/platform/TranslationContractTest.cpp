#include "platform/linux/translation/ApertiumTranslator.h"
#include "platform/linux/translation/Cld2LanguageIdentifier.h"
#include "support/Contract.h"
#include "support/ScriptedLanguageIdentifier.h"
#include "support/ScriptedTranslator.h"

#include <gtest/gtest.h>
#include <algorithm>

namespace kestrio {
namespace {

const LanguagePair toSpanish{QStringLiteral("en"), QStringLiteral("es")};
const QString house = QStringLiteral("The house is red.");

std::shared_ptr<Translator> scriptedTranslator() {
    const auto made = std::make_shared<ScriptedTranslator>();
    made->translations = {{house, QStringLiteral("La casa es roja.")}};
    return made;
}

const Candidate<Translator> translators[] = {
    {"scripted", scriptedTranslator},
    candidate<Translator, ApertiumTranslator>("desktop"),
};

class TranslatorContract : public testing::TestWithParam<Candidate<Translator>> {};

TEST_P(TranslatorContract, AnswersEachTextInOrder) {
    const auto translator = GetParam().make();
    const auto pairs = runUntilDone(translator->pairs({}));
    EXPECT_NE(std::ranges::find(pairs, toSpanish), pairs.end());
    std::vector<TranslatedText> answers;
    runUntilDone(translator->translate({toSpanish, {house, QString(), house}},
                                       [&](TranslatedText each) { answers.push_back(each); }, {}));
    ASSERT_EQ(answers.size(), 3U);
    for (int index : {0, 2}) {
        EXPECT_EQ(answers[index].index, index);
        EXPECT_EQ(answers[index].text, QStringLiteral("La casa es roja."));
        EXPECT_EQ(answers[index].failure, QString());
    }
    EXPECT_EQ(answers[1].failure, QStringLiteral("No translation was returned."));
}

TEST_P(TranslatorContract, RefusesOtherPairsAndStops) {
    const auto translator = GetParam().make();
    const auto unexpected = [](TranslatedText) { ADD_FAILURE(); };
    const LanguagePair unknown{QStringLiteral("en"), QStringLiteral("tlh")};
    EXPECT_THROW(runUntilDone(translator->translate({unknown, {house}}, unexpected, {})),
                 TranslationError);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(
        runUntilDone(translator->translate({toSpanish, {house}}, unexpected, stop.get_token())),
        Cancelled);
}

INSTANTIATE_TEST_SUITE_P(All, TranslatorContract, testing::ValuesIn(translators), candidateName);

std::shared_ptr<LanguageIdentifier> scriptedIdentifier() {
    const auto made = std::make_shared<ScriptedLanguageIdentifier>();
    made->hypotheses = {
        {house, {QStringLiteral("en"), 0.9}},
        {QStringLiteral("\u8a2d\u5b9a\u3092\u4fdd\u5b58\u3057\u307e\u3057\u305f\u3002"),
         {QStringLiteral("ja"), 0.9}},
        {QStringLiteral("\u9019\u662f\u7e41\u9ad4\u4e2d\u6587\u8aaa\u660e"),
         {QStringLiteral("zh-Hant"), 0.9}},
    };
    return made;
}

const Candidate<LanguageIdentifier> identifiers[] = {
    {"scripted", scriptedIdentifier},
    candidate<LanguageIdentifier, Cld2LanguageIdentifier>("desktop"),
};

class LanguageIdentifierContract : public testing::TestWithParam<Candidate<LanguageIdentifier>> {};

TEST_P(LanguageIdentifierContract, NamesLanguagesInTheirShortestForm) {
    const auto identifier = GetParam().make();
    const std::pair<QString, const char*> cases[] = {
        {house, "en"},
        {QStringLiteral("\u8a2d\u5b9a\u3092\u4fdd\u5b58\u3057\u307e\u3057\u305f\u3002"), "ja"},
        {QStringLiteral("\u9019\u662f\u7e41\u9ad4\u4e2d\u6587\u8aaa\u660e"), "zh-Hant"},
    };
    for (const auto& [text, language] : cases) {
        const auto found = identifier->identify(text);
        ASSERT_TRUE(found) << language;
        EXPECT_EQ(found->identifier, QString::fromLatin1(language));
        EXPECT_GT(found->confidence, 0.5);
        EXPECT_LE(found->confidence, 1);
    }
    for (const char* nothing : {"", "12345 67", "@@@ ---"})
        EXPECT_FALSE(identifier->identify(QString::fromLatin1(nothing))) << nothing;
}

INSTANTIATE_TEST_SUITE_P(All, LanguageIdentifierContract, testing::ValuesIn(identifiers),
                         candidateName);

}  // namespace
}  // namespace kestrio
