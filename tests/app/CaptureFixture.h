#pragma once

#include "app/ScriptedScrollingCapture.h"
#include "app/capture/CaptureCoordinator.h"
#include "capture/CaptureError.h"

#include "support/ScriptedAlerts.h"
#include "support/ScriptedExporter.h"
#include "support/ScriptedFileDialogs.h"
#include "support/ScriptedScreenPermission.h"
#include "support/Waiting.h"

#include <gtest/gtest.h>
#include <QTemporaryDir>

namespace kestrio {

/// A service whose user is the test: each capture waits until it is finished or failed.
class ScriptedScreenCapture : public ScreenCaptureServiceProtocol {
  public:
    int regionCount = 0;
    int windowCount = 0;
    int displayCount = 0;

    bool isPending() const { return pending_.has_value(); }
    void finish(RegionCaptureOutcome outcome) { take()->succeed(std::move(outcome)); }
    void fail(const std::exception_ptr& failure) { take()->fail(failure); }
    void fail(CaptureError::Case which) { fail(std::make_exception_ptr(CaptureError(which))); }

    Task<RegionCaptureOutcome> startRegionCapture(std::stop_token stop) override {
        ++regionCount;
        const auto chosen = pend(stop);
        co_return co_await chosen;
    }
    Task<CapturedImage> startWindowCapture(std::stop_token stop) override {
        ++windowCount;
        const auto chosen = pend(stop);
        const RegionCaptureOutcome outcome = co_await chosen;
        co_return outcome.capturedImage;
    }
    Task<CapturedImage> captureDisplay(std::stop_token stop) override {
        ++displayCount;
        const auto chosen = pend(stop);
        const RegionCaptureOutcome outcome = co_await chosen;
        co_return outcome.capturedImage;
    }

  private:
    using Pending = Completion<RegionCaptureOutcome>;

    Pending pend(const std::stop_token& stop) { return pending_.emplace(stop); }
    std::optional<Pending> take() { return std::exchange(pending_, std::nullopt); }

    std::optional<Pending> pending_;
};

class RecordingEditors : public EditorOpener {
  public:
    std::vector<CapturedImage> opened;
    QStringList names;

    void open(const CapturedImage& image, const QString& name) override {
        opened.push_back(image);
        names << name;
    }
    // Captures open pictures; documents are the business of other tests.
    std::shared_ptr<EditorViewModel> makeDocument() override { return nullptr; }
    void adopt(std::shared_ptr<EditorViewModel>, const QString&) override {}
    Task<bool> close(EditorViewModel&) override { co_return true; }
    EditorViewModel* currentEditorViewModel() override { return nullptr; }
};

class RecordingPins : public PinnedScreenshotCoordinatorProtocol {
  public:
    std::vector<Image> pinned;

    QUuid pin(Image image) override {
        pinned.push_back(std::move(image));
        return QUuid::createUuid();
    }
    void close(const QUuid&) override {}
    void closeAll() override { pinned.clear(); }
};

class RecordingToasts : public Toasts {
  public:
    QStringList texts;

    void show(const QString& text, std::chrono::milliseconds) override { texts << text; }
};

/// A coordinator whose every collaborator is the test's.
struct CaptureFixture : testing::Test {
    std::shared_ptr<ScriptedScreenCapture> service = std::make_shared<ScriptedScreenCapture>();
    std::shared_ptr<ScriptedScrollingCapture> scrollingService =
        std::make_shared<ScriptedScrollingCapture>();
    std::shared_ptr<SessionArbiter> sessions = std::make_shared<SessionArbiter>();
    std::shared_ptr<RecordingEditors> editors = std::make_shared<RecordingEditors>();
    std::shared_ptr<RecordingPins> pins = std::make_shared<RecordingPins>();
    std::shared_ptr<ScriptedExporter> exporter = std::make_shared<ScriptedExporter>();
    std::shared_ptr<MemoryUserDefaults> defaults = std::make_shared<MemoryUserDefaults>();
    std::shared_ptr<AppSettingsService> settings = std::make_shared<AppSettingsService>(defaults);
    std::shared_ptr<ScriptedScreenPermission> permission =
        std::make_shared<ScriptedScreenPermission>();
    std::shared_ptr<ScriptedAlerts> alerts = std::make_shared<ScriptedAlerts>();
    std::shared_ptr<RecordingToasts> toasts = std::make_shared<RecordingToasts>();
    std::shared_ptr<ScriptedFileDialogs> dialogs = std::make_shared<ScriptedFileDialogs>();
    QTemporaryDir folder;
    std::unique_ptr<CaptureCoordinator> captures;

    CaptureFixture() {
        AppSettings chosen = settings->load();
        chosen.defaultSavePath = folder.path();
        settings->save(chosen);
        captures = std::make_unique<CaptureCoordinator>(collaborators());
    }

    CaptureCollaborators collaborators() {
        CaptureCollaborators with;
        with.screenCapture = service;
        with.scrollingCapture = scrollingService;
        with.sessions = sessions;
        with.editors = editors;
        with.pins = pins;
        with.exporter = exporter;
        with.settings = settings;
        with.failures = std::make_shared<FailureNotice>(
            std::make_shared<PermissionManager>(permission, alerts), alerts);
        with.alerts = alerts;
        with.toasts = toasts;
        with.fileDialogs = dialogs;
        return with;
    }

    static RegionCaptureOutcome outcome(CaptureAction action) {
        QImage bitmap(40, 30, QImage::Format_RGB32);
        bitmap.fill(Qt::red);
        RegionCaptureOutcome made;
        made.capturedImage = {Image(bitmap, 2), QRectF(5, 6, 20, 15),
                              QDateTime(QDate(2026, 5, 4), QTime(3, 2, 1))};
        made.choice.action = action;
        return made;
    }

    bool waitForEnd() {
        return waitUntil([this] { return !captures->isCapturing(); });
    }
};

}  // namespace kestrio
