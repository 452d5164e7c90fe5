#include "editor/views/OutputPanel.h"

#include "editor/views/ViewRows.h"
#include "imaging/codecs/ImageEncoder.h"

#include <QDrag>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QUrl>

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds copyFeedbackTime{1600};
// Marks drags of this program's own, which its windows do not take back.
const QString ownDragFormat = QStringLiteral("application/x-kestrio-picture");
constexpr int dragPictureWidth = 200;  // pixels

}  // namespace

OutputPanel::OutputPanel(EditorViewModel& editor, EditorServices services, QString name,
                         QObject* parent)
    : QObject(parent),
      editor_(editor),
      name_(std::move(name)),
      export_(editor, std::move(services)) {
    using Export = ExportOptions;
    for (const auto signal : {&Export::stateChanged, &Export::selectedFormatChanged,
                              &Export::errorMessageChanged, &Export::savedPathChanged})
        connect(&export_, signal, this, &OutputPanel::exportChanged);
    connect(&export_, &Export::progressChanged, this, &OutputPanel::progressChanged);
    using Editor = EditorViewModel;
    connect(&editor.outputModel(), &OutputModel::isExportingChanged, this,
            &OutputPanel::busyChanged);
    for (const auto signal : {&Editor::canvasStateChanged, &Editor::screenshotChanged})
        connect(&editor, signal, this, &OutputPanel::outputSizeChanged);
    connect(&editor.styleModel(), &StyleModel::styleChanged, this, &OutputPanel::outputSizeChanged);
    copyFeedback_.setSingleShot(true);
    copyFeedback_.setInterval(copyFeedbackTime);
    connect(&copyFeedback_, &QTimer::timeout, this,
            [this] { set_copyState(QStringLiteral("idle")); });
}

QVariantList OutputPanel::formats() const {
    return viewRows<ExportFormat>();
}

QString OutputPanel::format() const {
    return rawName(export_.selectedFormat());
}

void OutputPanel::setFormat(const QString& id) {
    if (const auto format = namedValue<ExportFormat>(id)) export_.set_selectedFormat(*format);
}

QString OutputPanel::outputSize() const {
    const QSize pixels = editor_.outputPixels();
    return QStringLiteral("%1 × %2").arg(pixels.width()).arg(pixels.height());
}

void OutputPanel::unlessRedactionsAreHidden(Output output) {
    if (editor_.annotationSession().hidesRedactions()) {
        pending_ = output;
        Q_EMIT redactionsHidden();
    } else {
        (this->*output)();
    }
}

void OutputPanel::goOn(bool showsAnnotations) {
    const Output output = std::exchange(pending_, nullptr);
    if (!output) return;
    AnnotationViewModel& annotations = editor_.annotationVM();
    if (showsAnnotations && !annotations.annotationsVisible()) annotations.toggleVisibility();
    (this->*output)();
}

void OutputPanel::exportPicture() {
    unlessRedactionsAreHidden(&OutputPanel::startExport);
}

void OutputPanel::startExport() {
    export_.exportPicture(QGuiApplication::focusWindow());
}

void OutputPanel::pin() {
    unlessRedactionsAreHidden(&OutputPanel::startPin);
}

Task<> OutputPanel::runPin() {
    const QPointer<EditorViewModel> editor(&editor_);
    QString failure;
    try {
        auto pinning = editor_.outputModel().pinToDesktop();
        co_await pinning;
    } catch (const std::exception& error) {
        failure = describeFailure(error);
    }
    if (!editor || failure.isEmpty()) co_return;
    editor->set_errorMessage(Kestrio::tr("Failed to pin screenshot: %1").arg(failure));
}

void OutputPanel::copy() {
    if (!isBusy()) unlessRedactionsAreHidden(&OutputPanel::startCopy);
}

void OutputPanel::startCopy() {
    launch(runCopy(), this);
}

Task<> OutputPanel::runCopy() {
    const QPointer<OutputPanel> self(this);
    copyFeedback_.stop();
    set_copyState(QStringLiteral("copying"));
    QString failure;
    try {
        auto copying = editor_.outputModel().copyToClipboard();
        co_await copying;
    } catch (const std::exception& error) {
        failure = describeFailure(error);
    }
    if (!self) co_return;
    if (failure.isEmpty()) {
        endCopying(QStringLiteral("success"));
        editor_.set_toastMessage(Kestrio::tr("Copied to clipboard"));
    } else {
        endCopying(QStringLiteral("failure"));
        editor_.set_errorMessage(Kestrio::tr("Copy failed: %1").arg(failure));
    }
}

void OutputPanel::endCopying(const QString& state) {
    set_copyState(state);
    copyFeedback_.start();
}

void OutputPanel::beginDrag() {
    // A drag under way cannot ask.
    if (editor_.annotationSession().hidesRedactions()) {
        editor_.set_errorMessage(Kestrio::tr(
            "Blurred areas are hidden; show the annotations before you drag the picture"));
        return;
    }
    wantsDrag_ = true;
    if (!isBusy()) launch(runDrag(), this);
}

Task<> OutputPanel::runDrag() {
    const QPointer<OutputPanel> self(this);
    QString failure;
    try {
        auto rendering = editor_.outputModel().prepareRenderedImage();
        const CompositeRequest taken = editor_.presentPicture();
        const Image picture = co_await rendering;
        auto work = [bitmap = picture.bitmap()] {
            return encodeImage(bitmap, ExportFormat::png, {});
        };
        const auto encoding = runInBackground(std::move(work));
        const QByteArray png = co_await encoding;
        const bool isTaken = self && wantsDrag_ && startDrag(picture.bitmap(), png);
        if (self && isTaken) editor_.outputModel().markExported(taken);
    } catch (const std::exception& error) {
        failure = describeFailure(error);
    }
    if (self && !failure.isEmpty()) editor_.set_errorMessage(failure);
}

bool OutputPanel::startDrag(const QImage& picture, const QByteArray& png) {
    wantsDrag_ = false;
    auto* content = new QMimeData;
    content->setData(ownDragFormat, "1");
    content->setImageData(picture);
    content->setData(QStringLiteral("image/png"), png);
    if (!draggedFiles_) draggedFiles_.emplace();
    QFile file(draggedFiles_->filePath(name_ + QStringLiteral(".png")));
    if (draggedFiles_->isValid() && file.open(QIODevice::WriteOnly) &&
        file.write(png) == png.size())
        content->setUrls({QUrl::fromLocalFile(file.fileName())});
    auto* drag = new QDrag(this);
    drag->setMimeData(content);
    drag->setPixmap(QPixmap::fromImage(picture.scaledToWidth(
        std::min(dragPictureWidth, picture.width()), Qt::SmoothTransformation)));
    return drag->exec(Qt::CopyAction) != Qt::IgnoreAction;
}

}  // namespace kestrio
