#pragma once

#include "app/hotkeys/HotkeyManager.h"

#include <QPointer>
#include <functional>
#include <memory>

class QKeyEvent;
class QWindow;

namespace kestrio {

/// Takes a new combination for one hotkey from the keyboard. While it records, all global hotkeys
/// are let go, so that the present combination reaches it too. Main thread.
class ShortcutRecorder : public QObject {
    Q_OBJECT
    PUBLISHED(bool, isRecording, false)
    /// Why the last combination was not taken; empty where none was refused.
    PUBLISHED(QString, conflictMessage, {})

  public:
    using Validate = std::function<QString(const HotkeyConfig&)>;

    /// `validate` says what stands against a combination, or nothing.
    ShortcutRecorder(std::shared_ptr<HotkeyManager> hotkeys, Validate validate,
                     QObject* parent = nullptr);
    /// Ends recording.
    ~ShortcutRecorder() override;

    /// Starts recording, or ends it without a change.
    void toggle();
    void stop();

    Q_SIGNAL void recorded(const kestrio::HotkeyConfig& config);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void start();
    void take(const QKeyEvent& event);

    std::shared_ptr<HotkeyManager> hotkeys_;
    Validate validate_;
    QPointer<QWindow> window_;  // it has the keyboard while this records
};

}  // namespace kestrio
