#include "app/capture/CaptureCoordinator.h"

#include "core/Localisation.h"
#include "library/export/FileNaming.h"

#include <QFileInfo>
#include <QPointer>
#include <QScopeGuard>

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
        case CaptureKind::scrolling:
            return true;
        case CaptureKind::display:
            return false;
    }
    return true;
}

// Whether an editor will show the picture, as far as that is known before there is one.
ScrolledOpening openingFor(const CaptureRequest& request) {
    const CaptureAction action = request.action.value_or(CaptureAction::edit);
    const bool wantsEditor = action == CaptureAction::edit || action == CaptureAction::ocr;
    return wantsEditor && request.output.isEmpty() ? ScrolledOpening::editor
                                                   : ScrolledOpening::nothing;
}

}  // namespace

CaptureCoordinator::CaptureCoordinator(CaptureCollaborators collaborators, QObject* parent)
    : QObject(parent), collaborators_(std::move(collaborators)), saver_(collaborators_) {}

CaptureCoordinator::~CaptureCoordinator() {
    stop_.request_stop();
}

void CaptureCoordinator::startRegionCapture() {
    begin({CaptureKind::region});
}

void CaptureCoordinator::startWindowCapture() {
    begin({CaptureKind::window});
}

void CaptureCoordinator::startScrollingCapture(std::optional<ScrollingCaptureMode> mode) {
    CaptureRequest request{CaptureKind::scrolling};
    request.scrolling.mode = mode;
    begin(std::move(request));
}

void CaptureCoordinator::begin(CaptureRequest request) {
    if (isCapturing()) return;
    launch(runAndReport(std::move(request)), this);
}

Task<> CaptureCoordinator::runAndReport(CaptureRequest request) {
    const QPointer<CaptureCoordinator> self(this);
    std::optional<FlowFailure> failure;
    try {
        auto running = capture(std::move(request), stop_.get_token());
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
    if (self && isDone) begin({kind});
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
    auto acquiring = acquire(request, either.get_token());
    Acquired acquired = co_await acquiring;
    if (!self) throw goneError();
    turn->setUserChoosing(false);
    CaptureAction& action = acquired.outcome.choice.action;
    if (request.action && action == CaptureAction::edit) action = *request.action;
    // A disk that hangs must not hold up the next capture.
    QTimer::singleShot(storageGrace, this, [turn] { turn->end(); });
    auto carrying = carryOut(std::move(acquired), request.output, turn, either.get_token());
    co_return co_await carrying;
}

Task<CaptureCoordinator::Acquired> CaptureCoordinator::acquire(CaptureRequest request,
                                                               std::stop_token stop) {
    // Held by this flow, which may outlive the coordinator.
    const auto with = collaborators_;
    Acquired acquired;
    switch (request.kind) {
        case CaptureKind::region: {
            auto selecting = with.screenCapture->startRegionCapture(std::move(stop));
            acquired.outcome = co_await selecting;
            break;
        }
        case CaptureKind::window: {
            auto taking = with.screenCapture->startWindowCapture(std::move(stop));
            acquired.outcome.capturedImage = co_await taking;
            break;
        }
        case CaptureKind::display: {
            auto taking = with.screenCapture->captureDisplay(std::move(stop));
            acquired.outcome.capturedImage = co_await taking;
            break;
        }
        case CaptureKind::scrolling: {
            auto scrolling =
                captureScrolling(with.scrollingCapture, with.editors, request.scrolling,
                                 openingFor(request), std::move(stop));
            ScrolledCapture captured = co_await scrolling;
            acquired.outcome.capturedImage = std::move(captured.image);
            acquired.document = std::move(captured.document);
            break;
        }
    }
    co_return acquired;
}

Task<CaptureReport> CaptureCoordinator::carryOut(Acquired acquired, QString output, Turn turn,
                                                 std::stop_token stop) {
    const QPointer<CaptureCoordinator> self(this);
    const RegionCaptureOutcome& outcome = acquired.outcome;
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
            auto saving = quickSave(acquired, turn, std::move(stop));
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
            openEditor(acquired);
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

Task<QString> CaptureCoordinator::quickSave(Acquired acquired, Turn turn, std::stop_token stop) {
    const QPointer<CaptureCoordinator> self(this);
    const auto letOthersStart = [turn] { turn->end(); };
    auto saving =
        saver_.save(acquired.outcome.capturedImage.image, letOthersStart, std::move(stop));
    const CaptureSaving saved = co_await saving;
    if (!self) throw goneError();
    if (saved.opensEditor) openEditor(acquired);
    co_return saved.path;
}

void CaptureCoordinator::openEditor(const Acquired& acquired, const QString& name) {
    const RegionCaptureOutcome& outcome = acquired.outcome;
    const auto& editors = collaborators_.editors;
    QPointer<EditorViewModel> editor;
    if (acquired.document) {
        acquired.document->loadCapture(outcome.capturedImage);
        editors->adopt(acquired.document, name);
        editor = acquired.document.get();
    } else {
        editors->open(outcome.capturedImage, name);
        editor = editors->currentEditorViewModel();
    }
    // Afterwards: an editor that is closed for it takes the picture before with it.
    set_lastCapturedImage(outcome.capturedImage);
    // A long picture was no choice of the overlay, and takes longer to search than anybody waits.
    if (acquired.document) return;
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
    Acquired acquired;
    acquired.outcome.capturedImage = {std::move(image), QRectF(QPointF(), size),
                                      QDateTime::currentDateTime()};
    openEditor(acquired, name);
}

FlowFailure CaptureCoordinator::failureOf(const std::exception& error) {
    return FlowFailure::from(error, Kestrio::tr("Capture Error"));
}

void CaptureCoordinator::report(const FlowFailure& failure) {
    if (failure.isCancelled()) return;
    set_lastFailure(failure);
    if (failure.isReported()) return;
    launch(collaborators_.failures->show(failure, stop_.get_token()), this);
}

}  // namespace kestrio
