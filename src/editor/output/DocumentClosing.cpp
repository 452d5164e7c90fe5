#include "editor/output/DocumentClosing.h"

#include "core/Localisation.h"
#include "editor/output/QuickExport.h"

#include <QPointer>

namespace kestrio {

DocumentClosing::DocumentClosing(EditorViewModel& editor, EditorServices services, QObject* parent)
    : QObject(parent), editor_(editor), services_(std::move(services)) {
    // Queued: what was exported counts only once the export has reported so.
    connect(&editor.outputModel(), &OutputModel::isExportingChanged, this,
            &DocumentClosing::exportEnded, Qt::QueuedConnection);
}

DocumentClosing::~DocumentClosing() {
    stop_.request_stop();
}

bool DocumentClosing::requestClose() {
    if (isReleased_) return true;
    if (state() == ClosingState::saving) return false;
    if (editor_.outputModel().isExporting()) {
        set_state(ClosingState::waiting);
        return false;
    }
    editor_.finishEditing();
    if (editor_.outputModel().hasUnexportedChanges()) {
        set_errorMessage({});
        set_state(ClosingState::asking);
        return false;
    }
    return true;
}

void DocumentClosing::exportEnded() {
    if (state() == ClosingState::waiting && !editor_.outputModel().isExporting() && requestClose())
        release();
}

void DocumentClosing::release() {
    isReleased_ = true;
    set_state(ClosingState::open);
    Q_EMIT mayCloseNow();
}

void DocumentClosing::save() {
    if (state() == ClosingState::asking) launch(runSave({}), this);
}

void DocumentClosing::saveElsewhere(QWindow* parent) {
    if (state() == ClosingState::asking) launch(chooseAndSave(parent), this);
}

Task<> DocumentClosing::chooseAndSave(QWindow* parent) {
    const QPointer<DocumentClosing> self(this);
    OpenPanelRequest request;
    request.title = Kestrio::tr("Save into Folder");
    request.folder = services_.settings->load().defaultSavePath;
    request.parent = parent;
    const auto dialogs = services_.fileDialogs;
    auto choosing = dialogs->chooseFolder(std::move(request), stop_.get_token());
    const std::optional<QString> folder = co_await choosing;
    if (!self || !folder || state() != ClosingState::asking) co_return;
    auto saving = runSave(*folder);
    co_await saving;
}

Task<> DocumentClosing::runSave(QString folder) {
    const QPointer<DocumentClosing> self(this);
    set_errorMessage({});
    set_state(ClosingState::saving);
    QString failure;
    try {
        auto saving = quickExport(editor_, services_.settings->load(), folder);
        co_await saving;
    } catch (const std::exception& error) {
        failure = describeFailure(error);
    }
    if (!self) co_return;
    if (failure.isEmpty()) {
        release();
        co_return;
    }
    set_errorMessage(failure);
    set_state(ClosingState::asking);
}

void DocumentClosing::discard() {
    if (state() == ClosingState::asking) release();
}

void DocumentClosing::cancel() {
    if (state() == ClosingState::asking || state() == ClosingState::waiting) {
        set_state(ClosingState::open);
        Q_EMIT cancelled();
    }
}

}  // namespace kestrio
