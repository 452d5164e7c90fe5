#include "editor/output/ExportOptions.h"

#include "core/Cancelled.h"
#include "imaging/ExportError.h"
#include "library/export/FileNaming.h"

#include <QCoreApplication>
#include <QDir>
#include <QPointer>

namespace kestrio {

namespace {

FileType fileType(ExportFormat format) {
    QStringList suffixes = {fileExtension(format)};
    if (format == ExportFormat::jpeg) suffixes << QStringLiteral("jpg");
    return {displayName(format), suffixes};
}

// Looks at the folder, which may hang.
SavePanelRequest savePanel(const AppSettings& settings, ExportFormat format) {
    const bool exists = QDir(settings.defaultSavePath).exists();
    SavePanelRequest request;
    request.title = Kestrio::tr("Export");
    request.folder = exists ? settings.defaultSavePath : QDir::homePath();
    request.suggestedName =
        uniqueFileName(request.folder, fileExtension(format), QDateTime::currentDateTime(),
                       settings.fileNamingPattern) +
        u'.' + fileExtension(format);
    request.types = {fileType(format)};
    return request;
}

Task<SavePanelRequest> preparedPanel(AppSettings settings, ExportFormat format) {
    constexpr std::chrono::milliseconds patience(1000);
    SavePanelRequest request;
    try {
        auto preparing =
            runOnStorage([settings, format] { return savePanel(settings, format); }, patience);
        request = co_await preparing;
    } catch (const StorageTimeout&) {
        settings.defaultSavePath = QDir::homePath();
        request = savePanel(settings, format);
    }
    co_return request;
}

}  // namespace

ExportOptions::ExportOptions(EditorViewModel& editor, EditorServices services, QObject* parent)
    : QObject(parent), editor_(editor), services_(std::move(services)) {
    set_selectedFormat(services_.settings->load().defaultExportFormat);
}

ExportOptions::~ExportOptions() {
    stop_.request_stop();
}

void ExportOptions::exportPicture(QWindow* parent) {
    if (state() == ExportState::exporting || isAsking_) return;
    launch(run(parent), this);
}

Task<> ExportOptions::run(QPointer<QWindow> parent) {
    const QPointer<ExportOptions> self(this);
    isAsking_ = true;
    const auto dialogs = services_.fileDialogs;
    auto preparing = preparedPanel(services_.settings->load(), selectedFormat());
    SavePanelRequest request = co_await preparing;
    request.parent = parent;
    auto asking = dialogs->chooseSave(std::move(request));
    const std::optional<QString> path = co_await asking;
    if (!self) co_return;
    isAsking_ = false;
    if (!path) co_return;
    auto writing = write(*path);
    co_await writing;
}

Task<> ExportOptions::write(QString path) {
    const QPointer<ExportOptions> self(this);
    stop_ = std::stop_source();
    set_progress(0);
    set_state(ExportState::exporting);
    EncodeHooks hooks;
    hooks.stop = stop_.get_token();
    hooks.progress = [self](double fraction) {
        const auto tell = [self, fraction] {
            if (self) self->set_progress(fraction);
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), tell, Qt::QueuedConnection);
    };
    ExportState outcome = ExportState::success;
    QString failure;
    try {
        auto exporting = editor_.outputModel().exportImage(path, selectedFormat(), hooks);
        co_await exporting;
    } catch (const Cancelled&) {
        outcome = ExportState::idle;
    } catch (const std::exception& error) {
        const auto* known = dynamic_cast<const ExportError*>(&error);
        const bool isCancelled = known && known->errorCase() == ExportError::Case::userCancelled;
        outcome = isCancelled ? ExportState::idle : ExportState::failure;
        failure = describeFailure(error);
    }
    if (!self) co_return;
    set_errorMessage(outcome == ExportState::failure ? failure : QString());
    set_savedPath(outcome == ExportState::success ? path : QString());
    set_state(outcome);
}

void ExportOptions::cancel() {
    stop_.request_stop();
}

void ExportOptions::reveal() {
    if (!savedPath().isEmpty()) services_.fileReveal->reveal(savedPath());
}

void ExportOptions::restart() {
    if (state() != ExportState::exporting) set_state(ExportState::idle);
}

}  // namespace kestrio
