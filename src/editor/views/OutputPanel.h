#pragma once

#include "editor/output/ExportOptions.h"
#include "platform/DesktopWords.h"

#include <QQmlEngine>
#include <QTemporaryDir>
#include <QTimer>
#include <QVariantMap>

namespace kestrio {

/// What becomes of the finished picture: the clipboard, the export sheet, another program by
/// dragging. Main thread.
class OutputPanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    /// "idle", "copying", "success" or "failure"; the last two for a moment.
    PUBLISHED(QString, copyState, QStringLiteral("idle"))
    Q_PROPERTY(QVariantList formats READ formats CONSTANT)
    Q_PROPERTY(QString format READ format WRITE setFormat NOTIFY exportChanged)
    /// "idle", "exporting", "success" or "failure".
    Q_PROPERTY(QString exportState READ exportState NOTIFY exportChanged)
    Q_PROPERTY(QString exportMessage READ exportMessage NOTIFY exportChanged)
    Q_PROPERTY(QString savedPath READ savedPath NOTIFY exportChanged)
    Q_PROPERTY(QString revealText READ revealText CONSTANT)
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY busyChanged)
    Q_PROPERTY(bool canPin READ canPin CONSTANT)
    /// The finished picture's pixels, as "3840 × 2160".
    Q_PROPERTY(QString outputSize READ outputSize NOTIFY outputSizeChanged)

  public:
    /// `name` heads the files that are dragged out.
    OutputPanel(EditorViewModel& editor, EditorServices services, QString name,
                QObject* parent = nullptr);

    QVariantList formats() const;
    QString format() const;
    void setFormat(const QString& id);
    QString exportState() const { return rawString(export_.state()); }
    QString exportMessage() const { return export_.errorMessage(); }
    QString revealText() const { return desktopWords().showInFileViewer; }
    QString savedPath() const { return export_.savedPath(); }
    double progress() const { return export_.progress(); }
    bool isBusy() const { return editor_.outputModel().isExporting(); }
    bool canPin() const { return editor_.outputModel().canPin(); }
    QString outputSize() const;

    /// These ask first, by redactionsHidden(), where blurs are hidden with all annotations.
    Q_INVOKABLE void copy();
    Q_INVOKABLE void pin();
    Q_INVOKABLE void exportPicture();
    Q_SIGNAL void redactionsHidden();
    /// Does what was asked about, with all annotations shown again or without them.
    Q_INVOKABLE void goOn(bool showsAnnotations);
    Q_INVOKABLE void dropPending() { pending_ = nullptr; }
    Q_INVOKABLE void cancelExport() { export_.cancel(); }
    Q_INVOKABLE void reveal() { export_.reveal(); }
    Q_INVOKABLE void restart() { export_.restart(); }

    /// Begins to drag the finished picture, as a file and as pixels, once it is made; endDrag()
    /// before that calls it off.
    Q_INVOKABLE void beginDrag();
    Q_INVOKABLE void endDrag() { wantsDrag_ = false; }

    Q_SIGNAL void exportChanged();
    Q_SIGNAL void progressChanged();
    Q_SIGNAL void busyChanged();
    Q_SIGNAL void outputSizeChanged();

  private:
    using Output = void (OutputPanel::*)();
    void unlessRedactionsAreHidden(Output output);
    void startCopy();
    void startPin() { launch(runPin(), this); }
    void startExport();
    Task<> runCopy();
    Task<> runPin();
    Task<> runDrag();
    /// Whether somebody took what was dragged.
    bool startDrag(const QImage& picture, const QByteArray& png);
    void endCopying(const QString& state);

    EditorViewModel& editor_;
    QString name_;
    ExportOptions export_;
    QTimer copyFeedback_;
    bool wantsDrag_ = false;
    Output pending_ = nullptr;
    /// Holds dragged files for as long as the editor lives; made when one is dragged.
    std::optional<QTemporaryDir> draggedFiles_;
};

}  // namespace kestrio
