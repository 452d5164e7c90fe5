#include "editor/EditorFixture.h"

#include "editor/document/DocumentDraft.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSemaphore>
#include <QTemporaryDir>

namespace kestrio {
namespace {

struct DocumentDraftTest : EditorFixture {
    QTemporaryDir home;
    QString path = home.filePath(QStringLiteral("drafts"));
    std::shared_ptr<DraftService> drafts = std::make_shared<DraftService>(path);
    std::unique_ptr<DocumentDraft> draft;

    DocumentDraftTest() {
        editor->loadCapture({picture()});
        draft = makeDraft();
    }

    std::unique_ptr<DocumentDraft> makeDraft(std::shared_ptr<DraftFolder> taken = {}) {
        return std::make_unique<DocumentDraft>(*editor, QStringLiteral("shot"), drafts,
                                               std::move(taken));
    }

    static void runEventsUntil(const std::function<bool()>& condition, int milliseconds = 5000) {
        QElapsedTimer timer;
        timer.start();
        while (!condition() && timer.elapsed() < milliseconds)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        EXPECT_TRUE(condition()) << "within " << milliseconds << " ms";
    }

    bool isKept() const { return !QDir(path).isEmpty(); }

    /// As the next start finds it after this program has died.
    ClaimedDraft left() {
        draft.reset();
        drafts->settle();
        auto found = DraftStore(path).claimUnowned();
        EXPECT_EQ(found.size(), 1U);
        return found.empty() ? ClaimedDraft() : found.front();
    }

    void expectKept(bool isExpected, const char* after) {
        draft->writeNow();
        runEventsUntil([&] { return isKept() == isExpected; });
        EXPECT_EQ(isKept(), isExpected) << after;
    }
};

TEST_F(DocumentDraftTest, ItStandsASecondAfterTheLastChangeAndSoonerThanFourWhileTheyGoOn) {
    editor->setZoom(2);
    runEventsUntil([timer = QDeadlineTimer(1300)] { return timer.hasExpired(); });
    EXPECT_FALSE(isKept()) << "zoom is no change";
    editor->rotateClockwise();
    QElapsedTimer timer;
    timer.start();
    runEventsUntil([this] { return isKept(); }, 2000);
    EXPECT_GE(timer.elapsed(), 950);

    const auto rotation = [this] {
        const auto folders = QDir(path).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
        QFile file(folders.value(0).filePath() + QStringLiteral("/document.json"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    runEventsUntil([&] { return !rotation().isEmpty(); });
    const QByteArray before = rotation();
    int padding = 0;
    runEventsUntil(
        [&] {
            BackdropSettings changed = editor->styleModel().backdrop();
            changed.padding = ++padding % 100;
            editor->styleModel().set_backdrop(changed);
            return rotation() != before;
        },
        4000);
}

TEST_F(DocumentDraftTest, ItGoesWhereNothingWouldBeLost) {
    const std::pair<const char*, std::function<void()>> waysOut[] = {
        {"copy", [this] { runUntilDone(editor->outputModel().copyToClipboard()); }},
        {"export",
         [this] {
             runUntilDone(
                 editor->outputModel().exportImage(QStringLiteral("/x/y.png"), ExportFormat::png));
         }},
        {"undo", [this] { editor->undo(); }},
    };
    for (const auto& [name, leave] : waysOut) {
        editor->rotateClockwise();
        expectKept(true, "a change");
        leave();
        expectKept(false, name);
    }
    editor->rotateClockwise();
    expectKept(true, "a change");
    draft->discard();
    runEventsUntil([this] { return !isKept(); });
    editor->rotateClockwise();
    draft.reset();
    drafts->settle();
    EXPECT_FALSE(isKept()) << "a change after the window closed";
}

TEST_F(DocumentDraftTest, ADocumentThatEndsWithoutAnAnswerStaysWithItsLastChange) {
    draw(AnnotationTool::text, {10, 10}, {120, 60});
    AnnotationViewModel& model = editor->annotationVM();
    model.textEditing().begin(model.annotations().front().id());
    model.textEditing().setText(QStringLiteral("half a sen"));
    const ClaimedDraft claimed = left();
    ASSERT_TRUE(claimed.folder);
    EXPECT_EQ(claimed.name, QStringLiteral("shot"));
    const auto marks = claimed.folder->read().annotations;
    ASSERT_EQ(marks.size(), 1U);
    EXPECT_EQ(marks.front().as<TextAnnotation>()->text, QStringLiteral("half a sen"));
}

Image texture() {
    QImage bitmap(200, 100, QImage::Format_RGB32);
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width(); ++x)
            bitmap.setPixel(x, y, qRgb(x, 2 * y, (x * y) & 255));
    return Image(bitmap, 1.25);
}

void changeEverything(EditorViewModel& editor) {
    runUntilDone(editor.enhancement().enhanceImage(AIEnhancementMode::sharpen, 0.7));
    editor.applyPresetTheme(PresetTheme::all().back());
    editor.rotateClockwise();
    editor.setAspectRatio(AspectRatio::custom(3, 2));
    editor.styleModel().set_frameScale(1.4);
    editor.setZoom(3);
    WatermarkSettings mark;
    mark.textContent = QStringLiteral("mine");
    editor.watermarkVM().set_settings(mark);
    editor.watermarkVM().set_isEnabled(true);
}

void expectSamePicture(const CompositeRequest& actual, const CompositeRequest& expected) {
    EXPECT_EQ(actual.screenshot.bitmap(), expected.screenshot.bitmap());
    EXPECT_EQ(actual.screenshot.pointSize(), expected.screenshot.pointSize());
    EXPECT_EQ(actual.backdrop, expected.backdrop);
    EXPECT_EQ(actual.mockup, expected.mockup);
    EXPECT_EQ(actual.frameStyle, expected.frameStyle);
    EXPECT_EQ(actual.frameScale, expected.frameScale);
    EXPECT_EQ(actual.canvasState, atRest(expected.canvasState));
    EXPECT_EQ(actual.watermark, expected.watermark);
    EXPECT_TRUE(areIdentical(actual.annotations, expected.annotations));
}

TEST_F(DocumentDraftTest, ARestoredDocumentIsWhatItWasAndItsDraftGoesOn) {
    editor->replaceScreenshot(texture());
    draw(AnnotationTool::number, {30, 20}, {60, 50});
    draw(AnnotationTool::blur, {100, 20}, {150, 70});
    editor->enterCropMode();
    editor->cropSession().set_cropRect({20, 10, 120, 60});
    editor->applyCrop();
    const QImage original = editor->screenshot().bitmap();
    changeEverything(*editor);
    editor->annotationVM().toggleVisibility();
    const CompositeRequest expected = editor->wholePicture();
    const auto preset = editor->styleModel().currentPresetThemeId();
    const ClaimedDraft claimed = left();

    editor = makeEditor();
    editor->loadCapture({picture({3, 3})});
    editor->restoreDraft(claimed.folder->read());
    draft = makeDraft(claimed.folder);
    expectSamePicture(editor->wholePicture(), expected);
    EXPECT_FALSE(editor->annotationVM().annotationsVisible());
    EXPECT_EQ(editor->styleModel().currentPresetThemeId(), preset);
    EXPECT_FALSE(editor->canUndo());
    EXPECT_TRUE(editor->outputModel().hasUnexportedChanges());
    editor->rotateClockwise();
    expectKept(true, "another change");
    EXPECT_EQ(QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
    editor->undo();
    EXPECT_TRUE(editor->outputModel().hasUnexportedChanges()) << "undone to what was restored";
    ASSERT_TRUE(editor->enhancement().canRestoreOriginalImage());
    editor->enhancement().restoreOriginalImage();
    EXPECT_EQ(editor->screenshot().bitmap(), original);
    editor->annotationVM().toggleVisibility();
    runUntilDone(editor->outputModel().copyToClipboard());
    EXPECT_FALSE(editor->outputModel().hasUnexportedChanges());
    expectKept(false, "a copy");
}

TEST_F(DocumentDraftTest, AFailureIsToldOnceAndTheEditorWorksOn) {
    QFile obstacle(path);
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    int told = 0;
    QObject::connect(editor.get(), &EditorViewModel::errorMessageChanged, [&told] { ++told; });
    for (int change = 0; change < 2; ++change) {
        editor->rotateClockwise();
        draft->writeNow();
        drafts->settle();
        runEventsUntil([&told] { return told > 0; });
    }
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(editor->errorMessage()->isEmpty());
    obstacle.remove();
    editor->rotateClockwise();
    expectKept(true, "the disk is back");
}

}  // namespace
}  // namespace kestrio
