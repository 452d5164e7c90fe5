#include "editor/EditorFixture.h"
#include "support/ScriptedLanguageIdentifier.h"
#include "support/ScriptedTextRecognizer.h"
#include "support/ScriptedTranslator.h"
#include "support/Waiting.h"
#include "text/recognition/OCRService.h"

namespace kestrio {
namespace {

using namespace std::chrono_literals;
using Case = OCRTranslationStatus::Case;

struct OCRViewModelTest : EditorFixture {
    std::shared_ptr<ScriptedTextRecognizer> recognizer = std::make_shared<ScriptedTextRecognizer>();
    std::shared_ptr<ScriptedTranslator> translator = std::make_shared<ScriptedTranslator>();
    std::shared_ptr<ScriptedLanguageIdentifier> identifier =
        std::make_shared<ScriptedLanguageIdentifier>();
    std::shared_ptr<OCRService> service = std::make_shared<OCRService>(recognizer, 100ms);

    EditorServices services() override {
        EditorServices all = EditorFixture::services();
        all.ocr = service;
        all.translation = std::make_shared<OCRTranslationService>(translator, identifier);
        return all;
    }

    OCRViewModelTest() {
        recognizer->lines = {evenLine(QStringLiteral("house"), QRectF(20, 10, 100, 20)),
                             evenLine(QStringLiteral("return 1"), QRectF(20, 40, 100, 20)),
                             evenLine(QStringLiteral("tree"), QRectF(20, 70, 100, 20))};
        translator->translations = {{QStringLiteral("house"), QStringLiteral("casa")},
                                    {QStringLiteral("return 1"), QStringLiteral("vuelve 1")},
                                    {QStringLiteral("tree"), QStringLiteral("\u00e1rbol")}};
        for (const QString& text : translator->translations.keys())
            identifier->hypotheses[text] = {QStringLiteral("en"), 0.9};
        // The fixture's own was made before these services.
        editor = documentOn(picture());
    }

    OCRViewModel& text() { return editor->ocrVM(); }
    OCRTranslationModel& translation() { return text().translation(); }
    void scan() { runUntilDone(editor->performOCR()); }
    Case statusOf(std::size_t index) {
        return translation().state(text().results()[index].id).status.which;
    }
    QString toast() { return editor->toastMessage().value_or(QString()); }
    QString error() { return editor->errorMessage().value_or(QString()); }
    void chooseSpanish() {
        runUntilDone(translation().loadLanguages());
        translation().chooseTarget(QStringLiteral("es"));
    }
};

TEST_F(OCRViewModelTest, AScanShowsWhatItFound) {
    auto scanning = editor->performOCR();
    EXPECT_TRUE(text().isScanning());
    runUntilDone(std::move(scanning));
    EXPECT_FALSE(text().isScanning());
    EXPECT_TRUE(text().showResultsPanel());
    ASSERT_EQ(text().results().size(), 3U);
    ASSERT_EQ(text().highlightedRegions().size(), 3U);
    EXPECT_EQ(text().highlightedRegions()[2].bounds, QRectF(0.1, 0.1, 0.5, 0.2));
    EXPECT_EQ(text().highlightedRegions()[2].text, QStringLiteral("tree"));
    EXPECT_TRUE(toast().contains(u'3'));
    EXPECT_EQ(statusOf(0), Case::idle);
    EXPECT_EQ(statusOf(1), Case::skippedCode);
}

TEST_F(OCRViewModelTest, FailuresAreSaidAndLeaveNothingOld) {
    scan();
    recognizer->lines.clear();
    service = std::make_shared<OCRService>(recognizer, 50ms);
    editor = documentOn(picture());
    scan();
    EXPECT_EQ(error(), QStringLiteral("No text detected in image"));
    EXPECT_TRUE(text().results().empty());
    EXPECT_FALSE(text().showResultsPanel());
    recognizer->duration = 10s;
    editor->set_errorMessage(std::nullopt);
    text().set_selectedRegion(QRectF(0, 0, 1, 1));
    scan();
    EXPECT_EQ(error(), QStringLiteral("OCR timed out. Try with a smaller image."));
    recognizer->missing = QStringLiteral("The models are missing.");
    scan();
    EXPECT_EQ(error(), QStringLiteral("Recognition failed: The models are missing."));
    EXPECT_FALSE(text().isScanning());

    const auto empty = makeEditor();
    runUntilDone(empty->performOCR());
    EXPECT_EQ(empty->errorMessage(), QStringLiteral("No screenshot loaded"));
}

TEST_F(OCRViewModelTest, AnotherPictureEndsTheScanAndDropsItsText) {
    scan();
    chooseSpanish();
    editor->enterCropMode();
    editor->cropSession().set_cropRect(QRectF(0, 0, 100, 50));
    editor->applyCrop();
    EXPECT_TRUE(text().results().empty());
    EXPECT_TRUE(text().highlightedRegions().empty());
    EXPECT_TRUE(translation().translations().isEmpty());
    EXPECT_FALSE(text().showResultsPanel());

    recognizer->duration = 60ms;
    auto scanning = editor->performOCR();
    editor->replaceScreenshot(picture({40, 40}));
    EXPECT_FALSE(text().isScanning());
    // The next one does not wait for it, and is not mistaken for it.
    scan();
    EXPECT_EQ(recognizer->requests.back().picture.size(), QSize(40, 40));
    EXPECT_EQ(text().results().size(), 3U);
    runUntilDone(std::move(scanning));
    EXPECT_EQ(text().results().size(), 3U);
}

TEST_F(OCRViewModelTest, OtherModesEndTheChoiceOfARegion) {
    for (const bool isAnnotating : {true, false}) {
        text().set_isRegionSelectionMode(true);
        isAnnotating ? editor->toggleAnnotationMode() : editor->enterCropMode();
        EXPECT_FALSE(text().isRegionSelectionMode());
    }
}

TEST_F(OCRViewModelTest, CancellingKeepsWhatWasFoundBefore) {
    scan();
    const auto before = text().results();
    editor->set_errorMessage(std::nullopt);
    recognizer->duration = 10s;
    text().set_selectedRegion(QRectF(0, 0, 1, 1));
    auto scanning = editor->performOCR();
    text().cancelScan();
    EXPECT_FALSE(text().isScanning());
    runUntilDone(std::move(scanning));
    EXPECT_EQ(recognizer->stoppedCount, 1);
    EXPECT_EQ(text().results(), before);
    EXPECT_EQ(error(), QString());
}

TEST_F(OCRViewModelTest, ADocumentMayGoWhileItIsRead) {
    recognizer->duration = 20ms;
    auto scanning = editor->performOCR();
    editor.reset();
    runUntilDone(std::move(scanning));
}

TEST_F(OCRViewModelTest, CopiesWhatItIsAskedFor) {
    scan();
    text().copyRegion(2);
    EXPECT_EQ(pasteboard->contents().text, QStringLiteral("tree"));
    EXPECT_EQ(toast(), QStringLiteral("Copied to clipboard"));
    EXPECT_FALSE(text().highlightedRegions()[0].isSelected);
    EXPECT_TRUE(text().highlightedRegions()[2].isSelected);
    editor->set_toastMessage(std::nullopt);
    text().copyRegion(2);
    EXPECT_EQ(toast(), QStringLiteral("Copied to clipboard"));
    text().copyAll();
    EXPECT_EQ(pasteboard->contents().text, QStringLiteral("house\nreturn 1\ntree"));
    EXPECT_EQ(toast(), QStringLiteral("Copied all text to clipboard"));
    for (const int outside : {-1, 3})
        text().copyRegion(outside);
    text().copyTranslation(0);
    text().copyAllTranslations();
    EXPECT_EQ(pasteboard->contents().text, QStringLiteral("house\nreturn 1\ntree"));
}

TEST_F(OCRViewModelTest, FindsTheSmallestRegionUnderAPoint) {
    recognizer->lines.push_back(evenLine(QStringLiteral("page"), QRectF(0, 0, 200, 95)));
    scan();
    EXPECT_EQ(text().regionAt({0.2, 0.8}), 0);
    EXPECT_EQ(text().regionAt({0.2, 0.2}), 2);
    EXPECT_EQ(text().regionAt({0.9, 0.5}), 3);
    EXPECT_EQ(text().regionAt({0.9, 0.01}), -1);
}

TEST_F(OCRViewModelTest, TranslatesAllButCode) {
    scan();
    chooseSpanish();
    EXPECT_EQ(translation().progress(), OCRTranslationProgress::ready);
    translation().translateAll();
    EXPECT_TRUE(translation().isTranslating());
    EXPECT_EQ(statusOf(0), Case::queued);
    EXPECT_EQ(statusOf(1), Case::skippedCode);
    ASSERT_TRUE(waitUntil([this] { return !translation().isTranslating(); }));
    EXPECT_EQ(statusOf(0), Case::translated);
    EXPECT_EQ(statusOf(1), Case::skippedCode);
    EXPECT_EQ(translation().progress(), OCRTranslationProgress::complete);
    text().copyAllTranslations();
    EXPECT_EQ(pasteboard->contents().text, QStringLiteral("casa\n\u00e1rbol"));
    EXPECT_EQ(toast(), QStringLiteral("Copied all translations to clipboard"));

    translator->requests.clear();
    translation().translateAnyway(text().results()[1].id);
    ASSERT_TRUE(waitUntil([this] { return !translation().isTranslating(); }));
    EXPECT_EQ(translator->requests.front().texts, QStringList{QStringLiteral("return 1")});
    text().copyTranslation(1);
    EXPECT_EQ(pasteboard->contents().text, QStringLiteral("vuelve 1"));
    EXPECT_EQ(toast(), QStringLiteral("Copied translation to clipboard"));
}

TEST_F(OCRViewModelTest, NothingToTranslateEndsAtOnce) {
    recognizer->lines = {evenLine(QStringLiteral("return 1"), QRectF(20, 40, 100, 20))};
    scan();
    chooseSpanish();
    translation().translateAll();
    EXPECT_FALSE(translation().isTranslating());
    EXPECT_EQ(translation().progress(), OCRTranslationProgress::ready);
}

TEST_F(OCRViewModelTest, LateAnswersOfAnEarlierRunChangeNothing) {
    scan();
    chooseSpanish();
    translator->duration = 30ms;
    translation().translateAll();
    ASSERT_TRUE(waitUntil([this] { return statusOf(0) == Case::translating; }));
    text().set_selectedRegion(QRectF(0, 0, 1, 1));
    scan();
    EXPECT_FALSE(translation().isTranslating());
    waitFor(100ms);
    EXPECT_EQ(statusOf(0), Case::idle);
    EXPECT_EQ(translator->stoppedCount, 1);

    translation().translateAll();
    ASSERT_TRUE(waitUntil([this] { return statusOf(0) == Case::translated; }));
    translation().cancel();
    EXPECT_EQ(statusOf(0), Case::translated);
    EXPECT_EQ(statusOf(2), Case::idle);
    waitFor(60ms);
    EXPECT_EQ(statusOf(2), Case::idle);
}

TEST_F(OCRViewModelTest, TheChosenLanguageIsKeptForLaterDocuments) {
    chooseSpanish();
    EXPECT_EQ(AppSettingsService(defaults).load().lastTranslationTargetLanguageIdentifier,
              QStringLiteral("es"));
    const auto later = documentOn(picture());
    runUntilDone(later->ocrVM().translation().loadLanguages());
    EXPECT_EQ(later->ocrVM().translation().selectedTargetLanguageIdentifier(),
              QStringLiteral("es"));
    // One that is not offered any more is no choice.
    translator->installed = {{QStringLiteral("es"), QStringLiteral("ca")}};
    const auto last = documentOn(picture());
    runUntilDone(last->ocrVM().translation().loadLanguages());
    EXPECT_EQ(last->ocrVM().translation().selectedTargetLanguageIdentifier(), QString());
}

TEST_F(OCRViewModelTest, AnotherLanguageDropsWhatWasTranslated) {
    scan();
    chooseSpanish();
    translation().translateAll();
    ASSERT_TRUE(waitUntil([this] { return !translation().isTranslating(); }));
    translation().chooseTarget(QStringLiteral("en"));
    EXPECT_EQ(translation().progress(), OCRTranslationProgress::ready);
    translation().translateAll();
    ASSERT_TRUE(waitUntil([this] { return !translation().isTranslating(); }));
    EXPECT_EQ(statusOf(0), Case::sameLanguage);
    translation().chooseTarget(QStringLiteral("xx"));
    translation().translateAll();
    ASSERT_TRUE(waitUntil([this] { return !translation().isTranslating(); }));
    EXPECT_EQ(statusOf(0), Case::failed);
    EXPECT_EQ(translation().progress(), OCRTranslationProgress::failed);
}

TEST_F(OCRViewModelTest, WithoutPairsTranslationIsUnavailable) {
    translator->installed.clear();
    auto loading = translation().loadLanguages();
    EXPECT_EQ(translation().progress(), OCRTranslationProgress::loadingLanguages);
    runUntilDone(std::move(loading));
    EXPECT_EQ(translation().progress(), OCRTranslationProgress::unavailable);
}

}  // namespace
}  // namespace kestrio
