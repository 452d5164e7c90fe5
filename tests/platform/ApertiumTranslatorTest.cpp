#include "platform/linux/translation/ApertiumTranslator.h"

#include <gtest/gtest.h>
#include <signal.h>
#include "platform/linux/translation/ApertiumModes.h"
#include "support/Waiting.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

namespace kestrio {
namespace {

using namespace std::chrono_literals;

const LanguagePair toSpanish{QStringLiteral("en"), QStringLiteral("es")};

// Gives back what it is given, but for what a test wants to go wrong. It is a shell that starts
// another process, as the real engine is.
constexpr char engine[] = R"(
echo start >> "$FOLDER/starts"
while IFS= read -r -d '' text; do
    case "$text" in
    *crash*) exit 3 ;;
    *hang*) sleep 1000 & echo $! > "$FOLDER/child"; wait ;;
    *flood*) yes ;;
    *) printf '%s\0' "$text" ;;
    esac
done
)";

struct ApertiumTranslatorTest : testing::Test {
    QTemporaryDir folder;
    ApertiumInstallation installation{folder.filePath(QStringLiteral("printer")),
                                      folder.filePath(QStringLiteral("modes")), 400ms};
    std::vector<TranslatedText> answers;

    ApertiumTranslatorTest() {
        QDir(folder.path()).mkdir(QStringLiteral("modes"));
        write(QStringLiteral("modes/eng-spa.mode"),
              "FOLDER=" + folder.path().toUtf8() + '\n' + engine);
        writePrinter("#!/bin/sh\ncat \"$2\"\n");
    }

    void writePrinter(const QByteArray& content) const {
        write(QStringLiteral("printer"), content);
        QFile::setPermissions(installation.pipelinePrinter,
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void write(const QString& name, const QByteArray& content) const {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray read(const QString& name) const {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    bool isChildGone() const {
        const int child = read(QStringLiteral("child")).trimmed().toInt();
        return child > 0 && ::kill(child, 0) != 0;
    }

    void translate(const QStringList& texts, std::stop_token stop = {}) {
        ApertiumTranslator translator(installation);
        runUntilDone(translator.translate(
            {toSpanish, texts}, [this](TranslatedText each) { answers.push_back(each); },
            std::move(stop)));
    }
    QStringList translatedTexts() const {
        QStringList texts;
        for (const TranslatedText& each : answers)
            texts << (each.failure.isEmpty() ? each.text : QStringLiteral("failed"));
        return texts;
    }
};

TEST(ApertiumModes, NamesLanguagesByTheirShortestCodes) {
    EXPECT_EQ(identifierOfApertium(QStringLiteral("eng")), QStringLiteral("en"));
    EXPECT_EQ(identifierOfApertium(QStringLiteral("es")), QStringLiteral("es"));
    EXPECT_EQ(identifierOfApertium(QStringLiteral("eng_US")), QStringLiteral("en-US"));
    EXPECT_EQ(identifierOfApertium(QStringLiteral("nob")), QStringLiteral("nb"));
    EXPECT_EQ(identifierOfApertium(QStringLiteral("frp")), QStringLiteral("frp"));
    EXPECT_EQ(identifierOfApertium(QStringLiteral("tagger")), QString());
    EXPECT_FALSE(modeOf(QStringLiteral("README.md")));
    EXPECT_FALSE(modeOf(QStringLiteral("eng-spa-tagger.mode")));
    EXPECT_FALSE(modeOf(QStringLiteral("eng-tagger.mode")));
}

TEST(ApertiumModes, FindsThePairByTheMainLanguageOfItsSource) {
    const std::vector<ApertiumMode> modes{*modeOf(QStringLiteral("spa-eng.mode")),
                                          *modeOf(QStringLiteral("spa-eng_US.mode")),
                                          *modeOf(QStringLiteral("hbs-eng.mode"))};
    const auto nameFor = [&](const char* source, const char* target) {
        const auto mode =
            modeFor({QString::fromLatin1(source), QString::fromLatin1(target)}, modes);
        return mode ? mode->name : QString();
    };
    EXPECT_EQ(nameFor("es", "en"), QStringLiteral("spa-eng"));
    EXPECT_EQ(nameFor("es-AR", "en-US"), QStringLiteral("spa-eng_US"));
    EXPECT_EQ(nameFor("hr", "en"), QStringLiteral("hbs-eng"));
    EXPECT_EQ(nameFor("en", "es"), QString());
    EXPECT_EQ(nameFor("", "en"), QString());
}

TEST_F(ApertiumTranslatorTest, BringsEveryCharacterThroughTheEngine) {
    const QStringList texts{QStringLiteral("[a] {b} ^c$ /d\\ <e> @f *g [h"),
                            QStringLiteral("Ends with a stop."),
                            QStringLiteral("\u6f22 \U0001F600"), QStringLiteral("Two\nlines")};
    translate(texts);
    EXPECT_EQ(translatedTexts(), texts);
    EXPECT_EQ(read(QStringLiteral("starts")), "start\n");
}

TEST_F(ApertiumTranslatorTest, AFailureStaysWithItsText) {
    translate({QStringLiteral("one"), QStringLiteral("crash"), QStringLiteral("two"),
               QStringLiteral("flood"), QStringLiteral("three"), QStringLiteral("hang"),
               QStringLiteral("four")});
    EXPECT_EQ(translatedTexts().join(u' '),
              QStringLiteral("one failed two failed three failed four"));
    EXPECT_TRUE(waitUntil([this] { return isChildGone(); }));
}

TEST_F(ApertiumTranslatorTest, AnEngineThatAlwaysFailsIsGivenUp) {
    QStringList texts;
    for (int count = 0; count < 20; ++count)
        texts << QStringLiteral("hang");
    QElapsedTimer clock;
    clock.start();
    translate(texts);
    EXPECT_LT(clock.elapsed(), 4000);
    EXPECT_EQ(answers.size(), 20U);
    EXPECT_EQ(read(QStringLiteral("starts")).count('\n'), 3);
    answers.clear();
    writePrinter("#!/nonexistent\n");
    translate({QStringLiteral("one")});
    EXPECT_EQ(translatedTexts(), QStringList{QStringLiteral("failed")});
}

TEST_F(ApertiumTranslatorTest, AStopEndsTheEngineAndWhatItStarted) {
    installation.limit = 60s;
    std::stop_source stop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        if (!read(QStringLiteral("child")).isEmpty()) stop.request_stop();
    });
    poll.start(10);
    EXPECT_THROW(translate({QStringLiteral("hang")}, stop.get_token()), Cancelled);
    EXPECT_TRUE(waitUntil([this] { return isChildGone(); }));
}

TEST_F(ApertiumTranslatorTest, WithoutProgramOrPairsNothingIsOffered) {
    EXPECT_EQ(runUntilDone(ApertiumTranslator(installation).pairs({})).size(), 1U);
    auto without = installation;
    without.modes += QStringLiteral("/none");
    EXPECT_TRUE(runUntilDone(ApertiumTranslator(without).pairs({})).empty());
    without = installation;
    without.pipelinePrinter += QStringLiteral(".none");
    EXPECT_TRUE(runUntilDone(ApertiumTranslator(without).pairs({})).empty());
    EXPECT_THROW(runUntilDone(ApertiumTranslator(without).translate({toSpanish, {}}, {}, {})),
                 TranslationError);
}

// The real engine marks words that it does not know, which no user wants to see.
TEST(ApertiumTranslator, UnknownWordsStandAsTheyAre) {
    ApertiumTranslator translator;
    QStringList texts;
    runUntilDone(translator.translate(
        {toSpanish, {QStringLiteral("Xyzzyfoo is here"), QStringLiteral("* [x] Save 50% of $5")}},
        [&](TranslatedText each) { texts << each.text; }, {}));
    ASSERT_EQ(texts.size(), 2);
    EXPECT_TRUE(texts[0].startsWith(u"Xyzzyfoo ")) << texts[0].toStdString();
    EXPECT_TRUE(texts[1].startsWith(u"* [x] ")) << texts[1].toStdString();
    EXPECT_TRUE(texts[1].contains(u"$5"));
}

}  // namespace
}  // namespace kestrio
