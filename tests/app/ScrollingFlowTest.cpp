#include "app/EditorsFixture.h"
#include "app/ScriptedScrollingCapture.h"

#include <algorithm>

namespace kestrio {
namespace {

using Phase = CaptureSessionState::Phase;
using ErrorCase = ScrollingCaptureError::Case;

/// Scrolling captures with real editors.
struct ScrollingFlowTest : EditorsFixture {
    std::shared_ptr<ScriptedScrollingCapture> service =
        std::make_shared<ScriptedScrollingCapture>();
    std::shared_ptr<RecordingPins> pins = std::make_shared<RecordingPins>();
    std::unique_ptr<CaptureCoordinator> captures;

    ScrollingFlowTest() { captures = makeCaptures(service, editors); }

    std::unique_ptr<CaptureCoordinator> makeCaptures(
        std::shared_ptr<ScrollingCaptureServiceProtocol> scrolling,
        std::shared_ptr<EditorOpener> opener) {
        CaptureCollaborators with;
        with.scrollingCapture = std::move(scrolling);
        with.sessions = std::make_shared<SessionArbiter>();
        with.editors = std::move(opener);
        with.pins = pins;
        with.exporter = exporter;
        with.settings = settings;
        with.failures = std::make_shared<FailureNotice>(
            std::make_shared<PermissionManager>(std::make_shared<ScriptedScreenPermission>(),
                                                alerts),
            alerts);
        with.alerts = alerts;
        with.toasts = toasts;
        with.fileDialogs = std::make_shared<ScriptedFileDialogs>();
        return std::make_unique<CaptureCoordinator>(std::move(with));
    }

    static CapturedImage tall() {
        QImage bitmap(60, 900, QImage::Format_RGB32);
        bitmap.fill(Qt::darkGreen);
        return {Image(bitmap, 2), QRectF(5, 6, 30, 40),
                QDateTime(QDate(2026, 5, 4), QTime(3, 2, 1))};
    }

    Task<> asking(CaptureRequest request) {
        auto capturing = captures->capture(std::move(request));
        co_await capturing;
    }

    bool waitForEnd() {
        return waitUntil([this] { return !captures->isCapturing(); });
    }
};

TEST_F(ScrollingFlowTest, TheEditorOpensBeforeThePictureIsThere) {
    captures->startScrollingCapture(ScrollingCaptureMode::automatic);
    ASSERT_TRUE(service->isPending());
    EXPECT_EQ(service->requests.back().mode, ScrollingCaptureMode::automatic);
    EXPECT_FALSE(service->requests.back().region);
    for (const Phase phase : {Phase::selectingRegion, Phase::capturing}) {
        service->enter(phase);
        EXPECT_TRUE(windows().empty());
    }
    service->enter(Phase::stitching);
    ASSERT_EQ(windows().size(), 1U);
    const QPointer<EditorViewModel> document = editors->currentEditorViewModel();
    ASSERT_TRUE(document);
    EXPECT_TRUE(document->isProcessingCapture());
    EXPECT_TRUE(captures->isCapturing());

    service->finish(tall());
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(windows().size(), 1U);
    ASSERT_TRUE(document);
    EXPECT_EQ(editors->currentEditorViewModel(), document.get());
    EXPECT_FALSE(document->isProcessingCapture());
    EXPECT_EQ(document->capturedRect(), tall().captureRect);
    ASSERT_TRUE(captures->lastCapturedImage());
    EXPECT_EQ(captures->lastCapturedImage()->image.bitmap(), tall().image.bitmap());
    service->enter(Phase::stitching);
    EXPECT_EQ(windows().size(), 1U) << "of a capture that has ended";
}

TEST_F(ScrollingFlowTest, FailuresCloseTheEditorAndAreToldOfOnce) {
    struct Case {
        ScrollingCaptureError error;
        std::size_t alerts;
    };
    const Case cases[] = {
        {ScrollingCaptureError(ErrorCase::memoryError), 1},
        {ScrollingCaptureError(ErrorCase::lowConfidence).reported(), 0},
        {ScrollingCaptureError(ErrorCase::cancelled), 0},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.error.errorDescription().toStdString());
        alerts->requests.clear();
        captures->startScrollingCapture();
        EXPECT_FALSE(service->requests.back().mode) << "that of the settings";
        service->enter(Phase::stitching);
        ASSERT_EQ(windows().size(), 1U);
        service->fail(each.error);
        // The event loop of a test ends with the last window.
        runEvents();
        EXPECT_FALSE(captures->isCapturing());
        EXPECT_TRUE(windows().empty());
        EXPECT_FALSE(editors->isEditorOpen());
        ASSERT_EQ(alerts->requests.size(), each.alerts);
        if (each.alerts == 0) continue;
        EXPECT_EQ(alerts->requests.front().title, u"Scrolling Capture Error");
        EXPECT_EQ(alerts->requests.front().text, each.error.errorDescription());
        alerts->dismiss();
    }
    EXPECT_EQ(draftCount(), 0);
}

TEST_F(ScrollingFlowTest, AnEditorThatIsClosedMeanwhileOpensAgainForThePicture) {
    captures->startScrollingCapture();
    service->enter(Phase::stitching);
    ASSERT_EQ(windows().size(), 1U);
    windows().front()->close();
    ASSERT_TRUE(waitUntil([] { return windows().empty(); }));
    service->finish(tall());
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(editors->currentEditorViewModel());
    EXPECT_FALSE(editors->currentEditorViewModel()->isProcessingCapture());
}

/// Makes no window at the first attempt.
struct ReluctantEditors : EditorOpener {
    std::shared_ptr<EditorOpener> real;
    int attempts = 0;

    void open(const CapturedImage& image, const QString& name) override { real->open(image, name); }
    std::shared_ptr<EditorViewModel> makeDocument() override { return real->makeDocument(); }
    void adopt(std::shared_ptr<EditorViewModel> document, const QString& name) override {
        if (attempts++ == 0) throw CaptureError(CaptureError::Case::windowNotFound);
        real->adopt(std::move(document), name);
    }
    Task<bool> close(EditorViewModel& document) override { return real->close(document); }
    EditorViewModel* currentEditorViewModel() override { return real->currentEditorViewModel(); }
};

TEST_F(ScrollingFlowTest, AWindowThatCannotBeMadeInTimeDoesNotCostThePicture) {
    const auto reluctant = std::make_shared<ReluctantEditors>();
    reluctant->real = editors;
    captures = makeCaptures(service, reluctant);
    captures->startScrollingCapture();
    service->enter(Phase::stitching);
    EXPECT_TRUE(windows().empty());
    service->finish(tall());
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(windows().size(), 1U);
    EXPECT_TRUE(alerts->requests.empty());
}

TEST_F(ScrollingFlowTest, OnlyAnEditorThatIsWantedOpens) {
    const QString file = folder.filePath(QStringLiteral("tall.png"));
    CaptureRequest requests[4];
    requests[0].action = CaptureAction::copy;
    requests[1].action = CaptureAction::save;
    requests[2].action = CaptureAction::pin;
    requests[3].output = file;
    for (CaptureRequest request : requests) {
        request.kind = CaptureKind::scrolling;
        request.scrolling.region = QRectF(1, 2, 300, 400);
        launch(asking(request), captures.get());
        ASSERT_TRUE(waitUntil([this] { return service->isPending(); }));
        EXPECT_EQ(service->requests.back().region, QRectF(1, 2, 300, 400));
        service->enter(Phase::stitching);
        EXPECT_TRUE(windows().empty());
        service->finish(tall());
        ASSERT_TRUE(waitForEnd());
        EXPECT_TRUE(windows().empty());
    }
    EXPECT_TRUE(std::ranges::any_of(
        toasts->texts, [](const QString& text) { return text.startsWith(u"Copied"); }));
    EXPECT_EQ(pins->pinned.size(), 1U);
    EXPECT_EQ(exporter->savedPaths.size(), 2);
    EXPECT_EQ(exporter->savedPaths.back(), file);
}

TEST_F(ScrollingFlowTest, WhereNothingFollowsTheScreenThatIsSaid) {
    captures = makeCaptures(nullptr, editors);
    captures->startScrollingCapture();
    ASSERT_TRUE(waitForEnd());
    ASSERT_EQ(alerts->requests.size(), 1U);
    EXPECT_EQ(alerts->requests.front().title, u"Scrolling Capture Error");
}

}  // namespace
}  // namespace kestrio
