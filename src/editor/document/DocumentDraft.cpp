#include "editor/document/DocumentDraft.h"

#include "core/Localisation.h"
#include "core/Log.h"

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds quietTime(1000);
constexpr std::chrono::milliseconds longestDelay(3000);

}  // namespace

DocumentDraft::DocumentDraft(EditorViewModel& editor, QString name,
                             std::shared_ptr<DraftService> drafts,
                             std::shared_ptr<DraftFolder> taken, QObject* parent)
    : QObject(parent),
      editor_(editor),
      name_(std::move(name)),
      writer_(std::move(drafts), std::move(taken)) {
    delay_.setSingleShot(true);
    // A coarse timer may fire a twentieth too early, before the user has come to rest.
    delay_.setTimerType(Qt::PreciseTimer);
    connect(&delay_, &QTimer::timeout, this, &DocumentDraft::update);
    connect(&writer_, &DraftWriter::failed, this, &DocumentDraft::reportFailure);
    connectDocument();
}

DocumentDraft::~DocumentDraft() {
    writeNow();
}

void DocumentDraft::connectDocument() {
    using Editor = EditorViewModel;
    for (const auto signal : {&Editor::screenshotChanged, &Editor::canvasStateChanged})
        connect(&editor_, signal, this, &DocumentDraft::changed);
    connect(&editor_.styleModel(), &StyleModel::styleChanged, this, &DocumentDraft::changed);
    connect(&editor_.annotationSession(), &AnnotationSession::annotationsChanged, this,
            &DocumentDraft::changed);
    connect(&editor_.enhancement(), &PictureEnhancement::canRestoreOriginalImageChanged, this,
            &DocumentDraft::changed);
    using Annotations = AnnotationViewModel;
    for (const auto signal :
         {&Annotations::annotationsChanged, &Annotations::annotationsVisibleChanged})
        connect(&editor_.annotationVM(), signal, this, &DocumentDraft::changed);
    using Watermark = WatermarkViewModel;
    for (const auto signal : {&Watermark::isEnabledChanged, &Watermark::settingsChanged})
        connect(&editor_.watermarkVM(), signal, this, &DocumentDraft::changed);
    connect(&editor_.outputModel(), &OutputModel::exported, this, &DocumentDraft::update);
}

void DocumentDraft::changed() {
    if (isDiscarded_) return;
    if (!delay_.isActive()) latest_.setRemainingTime(longestDelay);
    const std::chrono::milliseconds left(latest_.remainingTime());
    delay_.start(std::min(quietTime, left));
}

// What the user would lose is found out away from the main loop too: marks may be many.
void DocumentDraft::update() {
    delay_.stop();
    if (isDiscarded_ || editor_.screenshot().isNull()) return;
    writer_.update(
        [document = editor_.draft(name_), picture = editor_.wholePicture(),
         unexported = editor_.outputModel().unexportedChanges()]() -> std::optional<DraftDocument> {
            if (!unexported.wouldLose(picture)) return std::nullopt;
            return document;
        });
}

void DocumentDraft::writeNow() {
    if (delay_.isActive()) update();
}

void DocumentDraft::discard() {
    isDiscarded_ = true;
    delay_.stop();
    writer_.update([] { return std::nullopt; });
}

void DocumentDraft::reportFailure(const QString& reason) {
    if (isDiscarded_ || std::exchange(isFailureReported_, true)) return;
    logLine("DocumentDraft", reason);
    editor_.set_errorMessage(Kestrio::tr("Changes are not being kept on disk: %1").arg(reason));
}

}  // namespace kestrio
