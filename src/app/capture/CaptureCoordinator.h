#pragma once

#include "app/capture/CaptureRequest.h"
#include "app/capture/CaptureSaver.h"
#include "app/capture/ScrollingFlow.h"
#include "core/Published.h"

namespace kestrio {

/// Every capture goes through here: it waits for the screen, asks the service for a picture, does
/// with it what was decided, and reports failures. One for the life of the program; main thread.
/// Its end stops what is under way.
class CaptureCoordinator : public QObject {
    Q_OBJECT
    /// The last picture that reached the editor, until that is closed.
    PUBLISHED(std::optional<CapturedImage>, lastCapturedImage, std::nullopt)
    /// The last failure that was reported; a cancelled capture does not count as one.
    PUBLISHED(std::optional<FlowFailure>, lastFailure, std::nullopt)
    /// Seconds left of a timed capture; 0 already a moment before it, so that what shows them has
    /// left the screen.
    PUBLISHED(int, countdownRemaining, 0)
    PUBLISHED(bool, isCountingDown, false)

  public:
    explicit CaptureCoordinator(CaptureCollaborators collaborators, QObject* parent = nullptr);
    ~CaptureCoordinator() override;

    /// Whether a flow has the screen, so that what menus and hotkeys ask for would not begin.
    bool isCapturing() const { return collaborators_.sessions->isScreenTaken(); }

    // As menus and hotkeys ask for them: nothing happens while a capture is under way, and failures
    // are shown in alerts.

    void startRegionCapture();
    void startWindowCapture();
    /// The mode is that of the settings where absent.
    void startScrollingCapture(std::optional<ScrollingCaptureMode> mode = std::nullopt);
    /// Nothing happens while another one counts down. Captures that start meanwhile win.
    void startDelayedCapture(int seconds, CaptureKind kind);
    /// Calls off a capture that counts down; nothing happens where none does.
    void cancelCountdown() { countdown_.request_stop(); }

    /// Opens a picture that exists already, under its own name where it has one. Captures under way
    /// do not hinder it. Throws Error where the editor cannot be opened.
    void openImage(Image image, QString name = {});

    /// Lets go of lastCapturedImage, whose editor has been closed.
    void forgetLastCapture() { set_lastCapturedImage(std::nullopt); }

    /// A capture as another program asks for it. Waits while another one is being carried out, and
    /// throws CaptureError while the user chooses for another one or a count is under way; throws
    /// ExportError where the picture cannot be written or copied. A stop cancels it.
    Task<CaptureReport> capture(CaptureRequest request, std::stop_token stop = {});

    /// What a failure of a capture comes to.
    static FlowFailure failureOf(const std::exception& error);
    /// Reports a failure as the own flows do; cancelling stays silent.
    void report(const FlowFailure& failure);

  private:
    void begin(CaptureRequest request);
    Task<> runAndReport(CaptureRequest request);
    Task<> countDownAndBegin(int seconds, CaptureKind kind);
    /// False where the count was called off.
    Task<bool> countDown(int seconds, std::stop_token stop);
    /// What a capture yields, and the document that shows it already.
    struct Acquired {
        RegionCaptureOutcome outcome;
        std::shared_ptr<EditorViewModel> document = nullptr;
    };
    Task<Acquired> acquire(CaptureRequest request, std::stop_token stop);
    using Turn = std::shared_ptr<ScreenTurn>;

    Task<CaptureReport> carryOut(Acquired acquired, QString output, Turn turn,
                                 std::stop_token stop);
    /// Throws ExportError::clipboardFailed.
    Task<> copy(Image image);
    /// The path; empty where the editor has got the picture.
    Task<QString> quickSave(Acquired acquired, Turn turn, std::stop_token stop);
    void openEditor(const Acquired& acquired, const QString& name = {});

    CaptureCollaborators collaborators_;
    CaptureSaver saver_;
    std::stop_source countdown_;
    std::stop_source stop_;
};

}  // namespace kestrio
