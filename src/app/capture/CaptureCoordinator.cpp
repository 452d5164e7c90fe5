#include "app/capture/CaptureCoordinator.h"

#include "core/Localisation.h"
#include "library/export/FileNaming.h"

#include <QFileInfo>
#include <QPointer>
#include <QScopeGuard>
#include <stdexcept>

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds toastTime(2000);
constexpr std::chrono::milliseconds second(1000);
// A window needs it to leave the screen, and what it covered to be painted again.
constexpr std::chrono::milliseconds numberLeaves(150);

// What a picture usually takes to be written, and more.
constexpr std::chrono::seconds storageGrace(1);

CaptureError goneError() {
    return CaptureError(CaptureError::Case::cancelled);
}

// Whether the user, who may take long, takes part in it.
bool needsUser(CaptureKind kind) {
    switch (kind) {
        case CaptureKind::region:
        case CaptureKind::window:
            return true;
        case CaptureKind::display:
            return false;
    }
    return true;
}

// For kinds that leave the user no choice but the picture.
Task<RegionCaptureOutcome> outcomeOf(Task<CapturedImage> taking) {
    RegionCaptureOutcome outcome;
    outcome.capturedImage = co_await taking;
    co_return outcome;
}

}  // namespace

CaptureCoordinator::CaptureCoordinator(CaptureCollaborators collaborators, QObject* parent)
    : QObject(parent), collaborators_(std::move(collaborators)), saver_(collaborators_) {}

CaptureCoordinator::~CaptureCoordinator() {
    stop_.request_stop();
}

void CaptureCoordinator::startRegionCapture() {
    begin(CaptureKind::region);
}

void CaptureCoordinator::startWindowCapture() {
    begin(CaptureKind::window);
}

void CaptureCoordinator::begin(CaptureKind kind) {
    if (isCapturing()) return;
    launch(runAndReport(kind), this);
}

Task<> CaptureCoordinator::runAndReport(CaptureKind kind) {
    const QPointer<CaptureCoordinator> self(this);
    std::optional<FlowFailure> failure;
    try {
        auto running = capture({kind}, stop_.get_token());
        co_await running;
    } catch (const std::exception& error) {
        failure = failureOf(error);
    }
    if (self && failure) report(*failure);
}

void CaptureCoordinator::startDelayedCapture(int seconds, CaptureKind kind) {
    if (isCapturing() || isCountingDown()) return;
    launch(countDownAndBegin(seconds, kind), this);
}

Task<> CaptureCoordinator::countDownAndBegin(int seconds, CaptureKind kind) {
    const QPointer<CaptureCoordinator> self(this);
    auto counting = countDown(seconds, stop_.get_token());
    const bool isDone = co_await counting;
    if (self && isDone) begin(kind);
}

Task<bool> CaptureCoordinator::countDown(int seconds, std::stop_token stop) {
    const QPointer<CaptureCoordinator> self(this);
    countdown_ = std::stop_source();
    const std::stop_callback relay(stop, [own = countdown_]() mutable { own.request_stop(); });
    const std::stop_token cancelled = countdown_.get_token();
    set_isCountingDown(true);
    bool isDone = true;
    for (int remaining = seconds; remaining >= 0 && isDone; --remaining) {
        set_countdownRemaining(remaining);
        const auto shown = remaining == 0   ? numberLeaves
                           : remaining == 1 ? second - numberLeaves
                                            : second;
        try {
            const auto pause = sleepFor(shown, cancelled);
            co_await pause;
        } catch (const Cancelled&) {
            isDone = false;
        }
        if (!self) co_return false;
    }
    set_isCountingDown(false);
    set_countdownRemaining(0);
    co_return isDone;
}

Task<CaptureReport> CaptureCoordinator::capture(CaptureRequest request, std::stop_token stop) {
    const QPointer<CaptureCoordinator> self(this);
    if (request.delay > 0 && (isCountingDown() || isCapturing())) throw SessionArbiter::busy();
    // The caller's stop and the program's end both stop it.
    std::stop_source either;
    const std::stop_callback caller(stop, [either]() mutable { either.request_stop(); });
    const std::stop_callback end(stop_.get_token(), [either]() mutable { either.request_stop(); });
    if (request.delay > 0) {
        auto counting = countDown(request.delay, either.get_token());
        const bool isDone = co_await counting;
        if (!self || !isDone) throw goneError();
    }
    const auto sessions = collaborators_.sessions;
    auto waiting = sessions->takeScreen(either.get_token());
    const Turn turn = co_await waiting;
    const auto ending = qScopeGuard([turn] { turn->end(); });
    if (!self) throw goneError();
    set_lastFailure(std::nullopt);
    turn->setUserChoosing(needsUser(request.kind));
    auto acquiring = acquire(request.kind, either.get_token());
    RegionCaptureOutcome outcome = co_await acquiring;
    if (!self) throw goneError();
    turn->setUserChoosing(false);
    CaptureAction& action = outcome.choice.action;
    if (request.action && action == CaptureAction::edit) action = *request.action;
    // A disk that hangs must not hold up the next capture.
    QTimer::singleShot(storageGrace, this, [turn] { turn->end(); });
    auto carrying = carryOut(std::move(outcome), request.output, turn, either.get_token());
    co_return co_await carrying;
}

Task<RegionCaptureOutcome> CaptureCoordinator::acquire(CaptureKind kind, std::stop_token stop) {
    // Held by this flow, which may outlive the coordinator.
    const auto service = collaborators_.screenCapture;
    switch (kind) {
        case CaptureKind::region: {
            auto selecting = service->startRegionCapture(std::move(stop));
            co_return co_await selecting;
        }
        case CaptureKind::window: {
            auto taking = outcomeOf(service->startWindowCapture(std::move(stop)));
            co_return co_await taking;
        }
        case CaptureKind::display: {
            auto taking = outcomeOf(service->captureDisplay(std::move(stop)));
            co_return co_await taking;
        }
    }
    throw std::logic_error("an unknown kind of capture");
}

Task<CaptureReport> CaptureCoordinator::carryOut(RegionCaptureOutcome outcome, QString output,
                                                 Turn turn, std::stop_token stop) {
    const QPointer<CaptureCoordinator> self(this);
    const Image image = outcome.capturedImage.image;
    CaptureReport report;
    report.action = outcome.choice.action;
    if (!output.isEmpty()) {
        const ExportFormat format =
            formatNamed(QFileInfo(output).suffix()).value_or(ExportFormat::png);
        auto saving = collaborators_.exporter->saveImage(image, output, format, {});
        co_await saving;
        report.savedPath = output;
        if (!self || outcome.choice.action == CaptureAction::edit) co_return report;
    }
    switch (outcome.choice.action) {
        case CaptureAction::copy: {
            auto copying = copy(image);
            co_await copying;
            break;
        }
        case CaptureAction::save: {
            auto saving = quickSave(std::move(outcome), turn, std::move(stop));
            const QString path = co_await saving;
            if (path.isEmpty()) report.action = CaptureAction::edit;
            if (report.savedPath.isEmpty()) report.savedPath = path;
            break;
        }
        case CaptureAction::pin:
            collaborators_.pins->pin(image);
            break;
        case CaptureAction::edit:
        case CaptureAction::ocr:
            openEditor(outcome);
            break;
    }
    co_return report;
}

Task<> CaptureCoordinator::copy(Image image) {
    const auto toasts = collaborators_.toasts;
    auto copying = collaborators_.exporter->copyToClipboard(std::move(image));
    co_await copying;
    toasts->show(Kestrio::tr("Copied to clipboard"), toastTime);
}

Task<QString> CaptureCoordinator::quickSave(RegionCaptureOutcome outcome, Turn turn,
                                            std::stop_token stop) {
    const QPointer<CaptureCoordinator> self(this);
    const auto letOthersStart = [turn] { turn->end(); };
    auto saving = saver_.save(outcome.capturedImage.image, letOthersStart, std::move(stop));
    const CaptureSaving saved = co_await saving;
    if (!self) throw goneError();
    if (saved.opensEditor) openEditor(outcome);
    co_return saved.path;
}

void CaptureCoordinator::openEditor(const RegionCaptureOutcome& outcome, const QString& name) {
    // Afterwards: an editor that is closed for it takes the picture before with it.
    collaborators_.editors->open(outcome.capturedImage, name);
    set_lastCapturedImage(outcome.capturedImage);
    const QPointer<EditorViewModel> editor(collaborators_.editors->currentEditorViewModel());
    // Once the window is up.
    QMetaObject::invokeMethod(
        this,
        [editor, outcome, steps = collaborators_.editorSteps] {
            for (const EditorStep& step : steps)
                if (editor) step(*editor, outcome);
        },
        Qt::QueuedConnection);
}

void CaptureCoordinator::openImage(Image image, QString name) {
    const QSizeF size = image.pointSize();
    RegionCaptureOutcome outcome;
    outcome.capturedImage = {std::move(image), QRectF(QPointF(), size),
                             QDateTime::currentDateTime()};
    openEditor(outcome, name);
}

FlowFailure CaptureCoordinator::failureOf(const std::exception& error) {
    return FlowFailure::from(error, Kestrio::tr("Capture Error"));
}

void CaptureCoordinator::report(const FlowFailure& failure) {
    if (failure.isCancelled()) return;
    set_lastFailure(failure);
    launch(collaborators_.failures->show(failure, stop_.get_token()), this);
}

}  // namespace kestrio
