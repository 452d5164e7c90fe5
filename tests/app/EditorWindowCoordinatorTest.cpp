#include "app/EditorsFixture.h"

#include <QKeyEvent>

namespace kestrio {
namespace {

using EditorWindowCoordinatorTest = EditorsFixture;

TEST_F(EditorWindowCoordinatorTest, WhatACaptureBringsGoesIntoItsOwnDocument) {
    const auto service = std::make_shared<ScriptedScreenCapture>();
    CaptureCollaborators with;
    with.screenCapture = service;
    with.sessions = std::make_shared<SessionArbiter>();
    with.editors = editors;
    with.editorSteps = standardEditorSteps(
        std::make_shared<AppSettingsService>(std::make_shared<MemoryUserDefaults>()));
    std::size_t brought = 0;
    with.editorSteps.push_back([&brought](EditorViewModel& editor, const RegionCaptureOutcome&) {
        brought = editor.annotationVM().annotations().size();
    });
    CaptureCoordinator captures(with);
    captures.startRegionCapture();
    RegionCaptureOutcome outcome = CaptureFixture::outcome(CaptureAction::edit);
    outcome.choice.annotations = {CircleAnnotation{QUuid::createUuid(), {5, 5}, 3}};
    outcome.choice.tool = AnnotationTool::arrow;
    service->finish(outcome);
    ASSERT_TRUE(waitUntil([this] { return editors->isEditorOpen(); }));
    EditorViewModel* const captured = editors->currentEditorViewModel();
    EditorViewModel& later = open("later");
    runEvents();
    EXPECT_EQ(captured->annotationVM().annotations(), outcome.choice.annotations);
    EXPECT_EQ(captured->annotationVM().currentTool(), AnnotationTool::arrow);
    EXPECT_EQ(brought, 1U) << "steps come one after the other";
    EXPECT_FALSE(later.isAnnotationMode());
}

TEST_F(EditorWindowCoordinatorTest, TheTextOfACaptureIsReadWhereThatWasAskedFor) {
    const auto service = std::make_shared<ScriptedScreenCapture>();
    CaptureCollaborators with;
    with.screenCapture = service;
    with.sessions = std::make_shared<SessionArbiter>();
    with.editors = editors;
    with.editorSteps = standardEditorSteps(
        std::make_shared<AppSettingsService>(std::make_shared<MemoryUserDefaults>()));
    CaptureCoordinator captures(with);
    recognizer->lines = {evenLine(QStringLiteral("Hello"), QRectF(2, 2, 20, 8))};
    for (const CaptureAction action : {CaptureAction::edit, CaptureAction::ocr}) {
        captures.startRegionCapture();
        service->finish(CaptureFixture::outcome(action));
        ASSERT_TRUE(waitUntil([&captures] { return !captures.isCapturing(); }));
        EditorViewModel* const captured = editors->currentEditorViewModel();
        ASSERT_NE(captured, nullptr);
        const bool isAsked = action == CaptureAction::ocr;
        waitUntil([&] { return !isAsked || captured->ocrVM().showResultsPanel(); });
        runEvents();
        EXPECT_EQ(captured->ocrVM().results().size(), isAsked ? 1U : 0U);
        EXPECT_EQ(recognizer->requests.size(), isAsked ? 1U : 0U);
    }
}

// As a capture does that shows its window before it has its picture.
TEST_F(EditorWindowCoordinatorTest, ADocumentIsAdoptedBeforeItsPictureIsThere) {
    const std::shared_ptr<EditorViewModel> document = editors->makeDocument();
    document->awaitCapture();
    editors->adopt(document, QString());
    EXPECT_EQ(editors->currentEditorViewModel(), document.get());
    ASSERT_EQ(windows().size(), 1U);
    auto* const overlay = windows().front()->findChild<QObject*>(QStringLiteral("processing"));
    ASSERT_NE(overlay, nullptr);
    EXPECT_TRUE(overlay->property("active").toBool());
    EXPECT_FALSE(document->outputModel().hasUnexportedChanges())
        << "there is nothing yet that closing would lose";

    const QRectF place(10, 20, 64, 48);
    const QDateTime taken = QDateTime::currentDateTime();
    QImage bitmap(64, 48, QImage::Format_RGB32);
    bitmap.fill(Qt::darkCyan);
    document->loadCapture({Image(bitmap), place, taken});
    EXPECT_FALSE(overlay->property("active").toBool());
    EXPECT_EQ(document->capturedRect(), place);
    EXPECT_EQ(document->capturedDate(), taken);
    editors->adopt(document, QString());
    EXPECT_EQ(windows().size(), 1U) << "a document has one window";
}

TEST_F(EditorWindowCoordinatorTest, WhoeverClosesADocumentHearsHowThatEnded) {
    EditorViewModel& document = open("shot");
    document.rotateClockwise();
    QPointer<EditorViewModel> kept;
    int rotationWhenKept = 0;
    QObject::connect(editors.get(), &EditorWindowCoordinator::closing, editors.get(),
                     [&](EditorViewModel* closing) {
                         kept = closing;
                         rotationWhenKept =
                             static_cast<int>(closing->canvasState().transform.rotation);
                     });
    std::vector<bool> answers;
    const auto close = [&]() -> Task<> {
        auto closing = editors->close(document);
        answers.push_back(co_await closing);
    };
    launch(close(), editors.get());
    runEvents();
    EXPECT_TRUE(answers.empty()) << "the user is being asked";
    answerClosing("cancel");
    runEvents();
    EXPECT_EQ(answers, std::vector<bool>{false});
    EXPECT_EQ(windows().size(), 1U);

    launch(close(), editors.get());
    runEvents();
    answerClosing("discard");
    runEvents();
    EXPECT_EQ(answers, (std::vector<bool>{false, true}));
    EXPECT_TRUE(windows().empty());
    EXPECT_EQ(rotationWhenKept, 90) << "the document is whole when its window has gone";
    EXPECT_FALSE(kept);
}

TEST_F(EditorWindowCoordinatorTest, EachPictureGetsAWindowAndTheLatestIsCurrent) {
    const QPointer first(&open("first"));
    const QPointer second(&open("second"));
    ASSERT_TRUE(first) << "the editor that was open stays open";
    EXPECT_EQ(windows().size(), 2U);
    EXPECT_EQ(editors->currentEditorViewModel(), second);
    for (QWindow* each : windows())
        if (each->title().contains(QStringLiteral("second"))) each->close();
    runEvents();
    EXPECT_FALSE(second);
    EXPECT_EQ(editors->currentEditorViewModel(), first);
    EXPECT_TRUE(editors->isEditorOpen());
    EXPECT_EQ(activation->policy(), ActivationPolicy::regular);
    windows().front()->close();
    runEvents();
    EXPECT_FALSE(editors->isEditorOpen());
    EXPECT_EQ(activation->policy(), ActivationPolicy::accessory);
}

TEST_F(EditorWindowCoordinatorTest, AChangedDocumentAsksInItsWindowBeforeItCloses) {
    open("changed").rotateClockwise();
    QWindow* const window = windows().front();
    EXPECT_FALSE(window->close());
    runEvents();
    EXPECT_TRUE(window->isVisible());
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &escape);
    EXPECT_FALSE(window->close()) << "it asks again";
    runEvents();
    auto* const discard = window->findChild<QObject*>(QStringLiteral("editor.closing.discard"));
    ASSERT_NE(discard, nullptr);
    QMetaObject::invokeMethod(discard, "clicked");
    runEvents();
    EXPECT_FALSE(editors->isEditorOpen());
    EXPECT_TRUE(exporter->savedPaths.empty());
}

TEST_F(EditorWindowCoordinatorTest, QuittingAsksOnceForAll) {
    open("untouched");
    quitting->request();
    runEvents();
    EXPECT_EQ(endings, 1) << "nothing to lose";

    open("one").rotateClockwise();
    open("other").rotateClockwise();
    quitting->request();
    quitting->request();
    ASSERT_EQ(alerts->requests.size(), 1U);
    EXPECT_TRUE(alerts->requests.front().text.contains(QStringLiteral("“one”\n“other”")));
    EXPECT_FALSE(alerts->requests.front().text.contains(QStringLiteral("untouched")));
    alerts->dismiss();
    runEvents();
    EXPECT_EQ(endings, 1) << "cancelled";
    quitting->request();
    alerts->answer(1);
    runEvents();
    EXPECT_EQ(endings, 2) << "discarded";
    EXPECT_TRUE(exporter->savedPaths.empty());
    quitting->request();
    alerts->answer(0);
    runEvents();
    EXPECT_EQ(endings, 3) << "saved";
    EXPECT_EQ(exporter->savedPaths.size(), 2);
    EXPECT_TRUE(editors->unexportedDocuments().empty());
}

TEST_F(EditorWindowCoordinatorTest, QuittingEndsNothingThatCouldNotBeSaved) {
    open("one").rotateClockwise();
    exporter->saveFailure = ExportError::fileWriteFailed(folder.path());
    quitting->request();
    alerts->answer(0);
    runEvents();
    ASSERT_EQ(alerts->requests.size(), 2U);
    EXPECT_TRUE(alerts->requests.back().text.contains(exporter->saveFailure->errorDescription()));
    alerts->answer(0);
    runEvents();
    EXPECT_EQ(endings, 0);
    EXPECT_TRUE(editors->isEditorOpen());
}

TEST_F(EditorWindowCoordinatorTest, DraftsGoWithTheUsersConsentAndStayWithoutIt) {
    open("one").rotateClockwise();
    open("untouched");
    editors->writeDrafts();
    EXPECT_EQ(draftCount(), 1);
    quitting->request();
    alerts->answer(1);
    runEvents();
    EXPECT_EQ(draftCount(), 0) << "discarded while quitting";

    open("other").rotateClockwise();
    editors->writeDrafts();
    EXPECT_EQ(draftCount(), 1);
    quitting->request();
    alerts->answer(0);
    runEvents();
    EXPECT_EQ(draftCount(), 0) << "saved while quitting";

    EditorViewModel& last = open("last");
    last.rotateClockwise();
    editors->writeDrafts();
    QWindow* window = nullptr;
    for (QWindow* each : windows())
        if (each->title().contains(QStringLiteral("last"))) window = each;
    ASSERT_TRUE(window);
    window->close();
    runEvents();
    EXPECT_EQ(draftCount(), 1) << "it asks";
    QMetaObject::invokeMethod(window->findChild<QObject*>(QStringLiteral("editor.closing.discard")),
                              "clicked");
    runEvents();
    EXPECT_EQ(draftCount(), 0) << "discarded in its window";
}

TEST_F(EditorWindowCoordinatorTest, WhatASignalEndedIsOfferedUntilItIsAnswered) {
    open("one").rotateClockwise();
    open("other").rotateClockwise();
    const CompositeRequest expected = editors->currentEditorViewModel()->wholePicture();
    restart();
    EXPECT_EQ(draftCount(), 2);

    const auto restoring = [this] {
        return std::make_unique<DraftRestoring>(
            DraftRestoring::Collaborators{drafts, editors, alerts});
    };
    auto first = restoring(), second = restoring();
    first->offer();
    second->offer();
    EXPECT_TRUE(waitUntil([this] { return alerts->isPending(); }));
    runEvents();
    ASSERT_EQ(alerts->requests.size(), 1U) << "each draft is offered once";
    EXPECT_TRUE(alerts->requests.back().text.contains(QStringLiteral("“one”")));
    EXPECT_TRUE(alerts->requests.back().text.contains(QStringLiteral("“other”")));
    alerts->dismiss();
    runEvents();
    EXPECT_EQ(draftCount(), 2) << "later";
    EXPECT_FALSE(editors->isEditorOpen());

    first->offer();
    EXPECT_TRUE(waitUntil([this] { return alerts->isPending(); }));
    alerts->answer(0);
    EXPECT_TRUE(waitUntil([this] { return windows().size() == 2U; }));
    const CompositeRequest actual = editors->currentEditorViewModel()->wholePicture();
    EXPECT_EQ(actual.canvasState, expected.canvasState);
    EXPECT_EQ(actual.screenshot.bitmap(), expected.screenshot.bitmap());
    // Both were written within a moment, and which of them was last may differ.
    QStringList names;
    for (const auto& document : editors->unexportedDocuments())
        names << document.name;
    names.sort();
    EXPECT_EQ(names, QStringList({QStringLiteral("one"), QStringLiteral("other")}));
    first->offer();
    runEvents();
    EXPECT_FALSE(alerts->isPending()) << "they are open";

    first.reset();
    second.reset();
    restart();
    EXPECT_EQ(draftCount(), 2) << "restored and untouched";
    first = restoring();
    first->offer();
    EXPECT_TRUE(waitUntil([this] { return alerts->isPending(); }));
    alerts->answer(1);
    EXPECT_TRUE(waitUntil([this] { return draftCount() == 0; }));
}

TEST_F(EditorWindowCoordinatorTest, QuittingWaitsForAnExport) {
    EditorViewModel& document = open("one");
    document.rotateClockwise();
    exporter->saveGate.emplace();
    auto exporting = document.outputModel().exportImage(folder.filePath(QStringLiteral("x.png")),
                                                        ExportFormat::png);
    quitting->request();
    runEvents();
    EXPECT_EQ(endings, 0);
    EXPECT_TRUE(alerts->requests.empty());
    exporter->saveGate->succeed();
    runUntilDone(std::move(exporting));
    EXPECT_TRUE(waitUntil([this] { return endings == 1; }));
    EXPECT_EQ(exporter->savedPaths.size(), 1);
}

}  // namespace
}  // namespace kestrio
