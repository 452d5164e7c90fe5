#pragma once

#include "platform/linux/QtPasteboard.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <memory>
#include <vector>

class QLineEdit;

namespace kestrio {

/// Pastes into Qt's text fields, of Qt Quick and of widgets. By themselves these ask for the
/// clipboard on the main thread: each of them at every change on it, and again to paste, five
/// seconds a question where its owner does not answer. From install() on Qt does not notify them of
/// changes, and pasting goes through QtPasteboard. What is typed meanwhile follows what is pasted.
class TextPasting : public QObject {
    Q_OBJECT

  public:
    /// For the life of the application; later calls do nothing. Does nothing without an X server.
    static void install(std::shared_ptr<QtPasteboard> pasteboard);

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    TextPasting(std::shared_ptr<QtPasteboard> pasteboard, QObject* parent);

    bool filterKey(QObject* object, QKeyEvent* event);
    bool filterMiddleButton(QObject* object, QMouseEvent* event);
    void showMenu(QLineEdit* field, QPoint position);
    void begin(QObject* field, QClipboard::Mode mode);
    Task<> paste(QPointer<QObject> field, QClipboard::Mode mode);

    enum class HeldPastes { replay, drop };
    void replayKeys(HeldPastes pastes);

    std::shared_ptr<QtPasteboard> pasteboard_;
    QPointer<QObject> field_;  ///< what is pasted into at this moment; null where it lost the focus
    bool isPasting_ = false;
    std::vector<std::unique_ptr<QKeyEvent>> heldKeys_;
};

}  // namespace kestrio
