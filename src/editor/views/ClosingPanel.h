#pragma once

#include "editor/output/DocumentClosing.h"

#include <QQmlEngine>

namespace kestrio {

/// The question that a window asks before it closes on changes that were never exported. Main
/// thread.
class ClosingPanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    /// "open", "waiting", "asking" or "saving".
    Q_PROPERTY(QString state READ state NOTIFY stateChanged)
    Q_PROPERTY(QString errorMessage READ errorMessage NOTIFY stateChanged)

  public:
    ClosingPanel(EditorViewModel& editor, EditorServices services, QObject* parent = nullptr);

    const DocumentClosing& closing() const { return closing_; }
    QString state() const { return rawString(closing_.state()); }
    QString errorMessage() const { return closing_.errorMessage(); }

    /// Whether the window may close now; where not, mayCloseNow() says when it may.
    Q_INVOKABLE bool requestClose() { return closing_.requestClose(); }
    Q_INVOKABLE void save() { closing_.save(); }
    Q_INVOKABLE void saveElsewhere();
    Q_INVOKABLE void discard() { closing_.discard(); }
    Q_INVOKABLE void cancel() { closing_.cancel(); }

    Q_SIGNAL void stateChanged();
    Q_SIGNAL void mayCloseNow();

  private:
    DocumentClosing closing_;
};

}  // namespace kestrio
