#include "app/CaptureFixture.h"

#include <QFileInfo>

namespace kestrio {
namespace {

using CaptureCoordinatorTest = CaptureFixture;
using ErrorCase = CaptureError::Case;

TEST_F(CaptureCoordinatorTest, EachDecisionAboutARegionGoesItsWay) {
    struct Case {
        CaptureAction action;
        std::size_t editors, pins;
        QString toast;
    };
    const Case cases[] = {
        {CaptureAction::edit, 1, 0, {}},
        {CaptureAction::copy, 0, 0, QStringLiteral("Copied to clipboard")},
        {CaptureAction::save, 0, 0, QStringLiteral("Saved to ")},
        {CaptureAction::pin, 0, 1, {}},
    };
    for (const Case& each : cases) {
        editors->opened.clear();
        pins->pinned.clear();
        toasts->texts.clear();
        captures->startRegionCapture();
        EXPECT_TRUE(captures->isCapturing());
        service->finish(outcome(each.action));
        ASSERT_TRUE(waitForEnd());
        EXPECT_EQ(editors->opened.size(), each.editors);
        EXPECT_EQ(pins->pinned.size(), each.pins);
        EXPECT_EQ(toasts->texts.isEmpty(), each.toast.isEmpty());
        if (!each.toast.isEmpty()) {
            EXPECT_TRUE(toasts->texts.value(0).startsWith(each.toast));
        }
    }
    ASSERT_EQ(exporter->savedPaths.size(), 1);
    EXPECT_EQ(QFileInfo(exporter->savedPaths.front()).path(), folder.path());
    EXPECT_TRUE(alerts->requests.empty());
}

TEST_F(CaptureCoordinatorTest, ASecondCaptureMeanwhileDoesNothing) {
    captures->startRegionCapture();
    captures->startRegionCapture();
    captures->startWindowCapture();
    EXPECT_EQ(service->regionCount, 1);
    EXPECT_EQ(service->windowCount, 0);
    service->finish(outcome(CaptureAction::edit));
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(editors->opened.size(), 1U);
}

TEST_F(CaptureCoordinatorTest, FailuresAreToldByTheirKind) {
    struct Case {
        ErrorCase which;
        QString title;
    };
    const Case cases[] = {
        {ErrorCase::cancelled, {}},
        {ErrorCase::captureTimeout, QStringLiteral("Capture Error")},
        {ErrorCase::windowNotFound, QStringLiteral("Capture Error")},
        {ErrorCase::permissionDenied, QStringLiteral("Screen Recording Permission Required")},
    };
    for (const Case& each : cases) {
        alerts->requests.clear();
        captures->startWindowCapture();
        service->fail(each.which);
        ASSERT_TRUE(waitForEnd());
        if (each.title.isEmpty()) {
            EXPECT_TRUE(alerts->requests.empty());
            EXPECT_FALSE(captures->lastFailure());
            continue;
        }
        ASSERT_TRUE(waitUntil([&] { return !alerts->requests.empty(); }));
        EXPECT_EQ(alerts->requests.front().title, each.title);
        ASSERT_TRUE(captures->lastFailure());
        EXPECT_EQ(captures->lastFailure()->reason(), CaptureError(each.which).errorDescription());
        alerts->dismiss();
    }
}

TEST_F(CaptureCoordinatorTest, AStrangeFailureIsWrapped) {
    captures->startRegionCapture();
    service->fail(std::make_exception_ptr(std::runtime_error("out of luck")));
    ASSERT_TRUE(waitUntil([&] { return !alerts->requests.empty(); }));
    EXPECT_TRUE(alerts->requests.front().text.startsWith(QStringLiteral("System error: ")));
    EXPECT_TRUE(alerts->requests.front().text.contains(QStringLiteral("out of luck")));
    EXPECT_FALSE(captures->isCapturing());
}

TEST_F(CaptureCoordinatorTest, TheSettingsPlaceIsOpenedByTheFirstButtonOnly) {
    // In this order: what the first answer sets off has happened once the second one has its
    // effect.
    for (const int button : {1, 0}) {
        captures->startRegionCapture();
        service->fail(ErrorCase::permissionDenied);
        ASSERT_TRUE(waitUntil([&] { return alerts->isPending(); }));
        EXPECT_EQ(alerts->requests.back().buttons.size(), 2);
        EXPECT_EQ(permission->settingsCount, 0);
        alerts->answer(button);
    }
    ASSERT_TRUE(waitUntil([&] { return permission->settingsCount > 0; }));
    EXPECT_EQ(permission->settingsCount, 1);
}

TEST_F(CaptureCoordinatorTest, WhatNoPermissionWouldChangeIsToldWithoutADeadButton) {
    permission->insurmountable = QStringLiteral("not in this session");
    captures->startRegionCapture();
    service->fail(ErrorCase::permissionDenied);
    ASSERT_TRUE(waitUntil([&] { return alerts->isPending(); }));
    EXPECT_EQ(alerts->requests.back().text, u"not in this session");
    EXPECT_LE(alerts->requests.back().buttons.size(), 1);
    alerts->answer(0);
    ASSERT_TRUE(waitUntil([&] { return !alerts->isPending(); }));
    EXPECT_EQ(permission->settingsCount, 0);
}

TEST_F(CaptureCoordinatorTest, APictureThatCannotBeSavedIsKeptUntilItHasAPlace) {
    const QTemporaryDir other;
    exporter->saveFailure = ExportError::fileWriteFailed(QStringLiteral("/nowhere"));
    captures->startRegionCapture();
    service->finish(outcome(CaptureAction::save));
    ASSERT_TRUE(waitUntil([this] { return alerts->isPending(); }));
    EXPECT_TRUE(alerts->requests.back().text.contains(exporter->saveFailure->errorDescription()));
    EXPECT_TRUE(toasts->texts.isEmpty()) << "no tick";
    EXPECT_FALSE(captures->isCapturing()) << "the next capture need not wait";
    captures->startWindowCapture();

    alerts->answer(0);
    ASSERT_TRUE(waitUntil([this] { return dialogs->isPending(); }));
    dialogs->answer(QStringLiteral("/also/nowhere"));
    ASSERT_TRUE(waitUntil([this] { return alerts->requests.size() == 2; })) << "asked again";
    alerts->answer(0);
    ASSERT_TRUE(waitUntil([this] { return dialogs->isPending(); }));
    dialogs->dismiss();
    ASSERT_TRUE(waitUntil([this] { return alerts->requests.size() == 3; })) << "still there";
    exporter->saveFailure.reset();
    alerts->answer(0);
    ASSERT_TRUE(waitUntil([this] { return dialogs->isPending(); }));
    dialogs->answer(other.path());
    ASSERT_TRUE(waitUntil([this] { return !exporter->savedPaths.isEmpty(); }));
    EXPECT_EQ(QFileInfo(exporter->savedPaths.front()).path(), other.path());
    EXPECT_TRUE(toasts->texts.value(0).startsWith(QStringLiteral("Saved to ")));
    EXPECT_TRUE(captures->isCapturing()) << "the capture that began meanwhile goes on";
    service->fail(ErrorCase::cancelled);
    ASSERT_TRUE(waitForEnd());
}

TEST_F(CaptureCoordinatorTest, EscapeKeepsAPictureThatCouldNotBeSaved) {
    exporter->saveFailure = ExportError::fileWriteFailed(QStringLiteral("/nowhere"));
    auto capturing = captures->capture({CaptureKind::region});
    service->finish(outcome(CaptureAction::save));
    ASSERT_TRUE(waitUntil([this] { return alerts->isPending(); }));
    alerts->dismiss();
    EXPECT_EQ(runUntilDone(std::move(capturing)).action, CaptureAction::edit);
    EXPECT_EQ(editors->opened.size(), 1U);

    auto again = captures->capture({CaptureKind::region});
    service->finish(outcome(CaptureAction::save));
    ASSERT_TRUE(waitUntil([this] { return alerts->isPending(); }));
    alerts->answer(1);
    EXPECT_THROW(runUntilDone(std::move(again)), Cancelled);
    EXPECT_EQ(editors->opened.size(), 1U);
}

TEST_F(CaptureCoordinatorTest, AClipboardThatRefusesIsToldOf) {
    exporter->copyFailure = ExportError::clipboardFailed();
    captures->startRegionCapture();
    service->finish(outcome(CaptureAction::copy));
    ASSERT_TRUE(waitUntil([this] { return alerts->isPending(); }));
    EXPECT_FALSE(captures->isCapturing());
    auto copying = captures->capture({CaptureKind::region});
    service->finish(outcome(CaptureAction::copy));
    EXPECT_THROW(runUntilDone(std::move(copying)), ExportError);
    EXPECT_TRUE(toasts->texts.isEmpty());
}

TEST_F(CaptureCoordinatorTest, AnImageOpensEvenDuringACapture) {
    captures->startRegionCapture();
    captures->openImage(outcome(CaptureAction::edit).capturedImage.image, QStringLiteral("pasted"));
    ASSERT_EQ(editors->opened.size(), 1U);
    EXPECT_EQ(editors->opened.front().captureRect, QRectF(0, 0, 20, 15));
    EXPECT_EQ(editors->names.front(), u"pasted");
    EXPECT_TRUE(captures->isCapturing());
    service->fail(ErrorCase::cancelled);
    ASSERT_TRUE(waitForEnd());
}

TEST_F(CaptureCoordinatorTest, ARequestHasItsOwnWayUnlessTheUserDecidesOtherwise) {
    struct Case {
        std::optional<CaptureAction> asked;
        CaptureAction decided;
        bool hasOutput;
        std::size_t editors, pins;
        qsizetype saved;
    };
    using enum CaptureAction;
    const Case cases[] = {
        {std::nullopt, edit, false, 1, 0, 0}, {pin, edit, false, 0, 1, 0},
        {pin, copy, false, 0, 0, 0},          {std::nullopt, edit, true, 0, 0, 1},
        {pin, edit, true, 0, 1, 1},           {std::nullopt, pin, true, 0, 1, 1},
    };
    const QString file = folder.filePath(QStringLiteral("out.png"));
    for (const Case& each : cases) {
        editors->opened.clear();
        pins->pinned.clear();
        exporter->savedPaths.clear();
        auto capturing = captures->capture(
            {CaptureKind::region, 0, each.asked, each.hasOutput ? file : QString()});
        service->finish(outcome(each.decided));
        const CaptureReport report = runUntilDone(std::move(capturing));
        EXPECT_EQ(report.savedPath, each.hasOutput ? file : QString());
        EXPECT_EQ(editors->opened.size(), each.editors);
        EXPECT_EQ(pins->pinned.size(), each.pins);
        EXPECT_EQ(exporter->savedPaths.size(), each.saved);
    }
}

TEST_F(CaptureCoordinatorTest, ARequestIsRefusedWhileAnotherCaptureRuns) {
    captures->startRegionCapture();
    EXPECT_THROW(runUntilDone(captures->capture({CaptureKind::display})), CaptureError);
    EXPECT_TRUE(captures->isCapturing());
    service->fail(ErrorCase::cancelled);
    ASSERT_TRUE(waitForEnd());
}

TEST_F(CaptureCoordinatorTest, RequestsThatNeedNoUserWaitTheirTurn) {
    const CaptureRequest request{CaptureKind::display, 0, CaptureAction::pin};
    auto first = captures->capture(request);
    auto second = captures->capture(request);
    for (int turn = 1; turn <= 2; ++turn) {
        ASSERT_TRUE(
            waitUntil([&] { return service->displayCount == turn && service->isPending(); }));
        service->finish(outcome(CaptureAction::edit));
    }
    runUntilDone(std::move(first));
    runUntilDone(std::move(second));
    EXPECT_EQ(pins->pinned.size(), 2U);
}

TEST_F(CaptureCoordinatorTest, AStopEndsARequestWhereverItIs) {
    for (const int delay : {0, 30}) {
        std::stop_source stop;
        auto capturing = captures->capture({CaptureKind::region, delay}, stop.get_token());
        stop.request_stop();
        try {
            runUntilDone(std::move(capturing));
            FAIL() << "delay " << delay;
        } catch (const std::exception& error) {
            EXPECT_TRUE(FlowFailure::from(error).isCancelled());
        }
        EXPECT_FALSE(captures->isCapturing());
        EXPECT_FALSE(captures->isCountingDown());
    }
}

TEST_F(CaptureCoordinatorTest, ItsEndStopsWhatIsUnderWay) {
    captures->startRegionCapture();
    captures->startDelayedCapture(5, CaptureKind::region);
    captures.reset();
    // The flows wake up, find nobody, and touch nothing.
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents();
    EXPECT_TRUE(editors->opened.empty());
    EXPECT_TRUE(alerts->requests.empty());
}

}  // namespace
}  // namespace kestrio
