#include "editor/document/OutputModel.h"

#include "core/Localisation.h"
#include "editor/document/EditorViewModel.h"
#include "imaging/ExportError.h"

#include <QPointer>

namespace kestrio {

/// The document is exporting for as long as one of these lives: a copy and an export may overlap.
class OutputUnderWay {
  public:
    explicit OutputUnderWay(OutputModel* output) : output_(output) { count(1); }
    ~OutputUnderWay() {
        if (output_) count(-1);
    }
    Q_DISABLE_COPY_MOVE(OutputUnderWay)

  private:
    void count(int change) {
        output_->outputsUnderWay_ += change;
        output_->set_isExporting(output_->outputsUnderWay_ > 0);
    }

    QPointer<OutputModel> output_;
};

OutputModel::OutputModel(EditorViewModel& editor, EditorServices services)
    : editor_(editor), services_(std::move(services)) {}

bool OutputModel::hasUnexportedChanges() const {
    return unexported_.wouldLose(editor_.wholePicture());
}

void OutputModel::markExported(const CompositeRequest& picture) {
    unexported_.settle(picture);
    Q_EMIT exported();
}

Task<Image> OutputModel::prepareRenderedImage() {
    const OutputUnderWay exporting(this);
    const auto renderer = services_.imageRenderer;
    auto rendering = renderer->renderComposite(editor_.outputRequest());
    co_return co_await rendering;
}

Task<SavedFile> OutputModel::exportImage(SaveTarget target, ExportFormat format,
                                         EncodeHooks hooks) {
    const OutputUnderWay exporting(this);
    const QPointer<OutputModel> self(this);
    const auto renderer = services_.imageRenderer;
    const auto exporter = services_.exporter;
    const CompositeRequest request = editor_.outputRequest();
    requireEncodable(finishedSize(request), format);
    auto rendering = renderer->renderComposite(request, hooks.stop);
    Image picture = co_await rendering;
    auto saving = exporter->saveImage(std::move(picture), std::move(target), format, hooks);
    const SavedFile saved = co_await saving;
    if (self) self->markExported(request);
    co_return saved;
}

Task<> OutputModel::copyToClipboard() {
    const OutputUnderWay exporting(this);
    const QPointer<OutputModel> self(this);
    const auto renderer = services_.imageRenderer;
    const auto exporter = services_.exporter;
    const CompositeRequest request = editor_.outputRequest();
    auto rendering = renderer->renderComposite(request);
    const Image picture = co_await rendering;
    auto copying = exporter->copyToClipboard(picture);
    co_await copying;
    if (self) self->markExported(request);
}

Task<> OutputModel::pinToDesktop() {
    if (editor_.screenshot().isNull() || !canPin()) co_return;
    const QPointer<OutputModel> self(this);
    const auto renderer = services_.imageRenderer;
    const auto pins = services_.pins;
    const CompositeRequest request = editor_.outputRequest();
    auto rendering = renderer->renderComposite(request);
    const Image picture = co_await rendering;
    pins->pin(picture);
    if (!self) co_return;
    markExported(request);
    editor_.set_toastMessage(Kestrio::tr("Screenshot pinned to desktop"));
}

}  // namespace kestrio
