#include "editor/output/DocumentSharing.h"

#include "core/Localisation.h"
#include "editor/output/SharedFiles.h"
#include "imaging/ExportError.h"
#include "library/export/FileNaming.h"

#include <QPointer>

namespace kestrio {

namespace {

// What every program reads.
constexpr ExportFormat sharedFormat = ExportFormat::png;
const QString sharedMimeType = QStringLiteral("image/png");

}  // namespace

DocumentSharing::DocumentSharing(EditorViewModel& editor, EditorServices services, QString name,
                                 QObject* parent)
    : QObject(parent), editor_(editor), services_(std::move(services)), name_(std::move(name)) {}

std::vector<SharingProgram> DocumentSharing::programs() const {
    if (!services_.sharing) return {};
    return services_.sharing->programsFor(sharedMimeType);
}

void DocumentSharing::email() {
    if (services_.sharing && services_.sharing->canEmail()) {
        begin(Way::email);
    } else {
        fail(SharingError(SharingError::Case::noMailProgram).errorDescription());
    }
}

void DocumentSharing::openWith(const QString& programId) {
    begin(Way::openWith, programId);
}

void DocumentSharing::copyFile() {
    begin(Way::copyFile);
}

void DocumentSharing::fail(const QString& reason) {
    editor_.set_errorMessage(Kestrio::tr("Share failed: %1").arg(reason));
}

void DocumentSharing::begin(Way way, QString programId) {
    if (isSharing() || editor_.outputModel().isExporting()) {
        editor_.set_toastMessage(Kestrio::tr("The picture is still being made"));
        return;
    }
    if (editor_.annotationSession().hidesRedactions()) {
        fail(Kestrio::tr("blurred areas are hidden with the annotations; show them first"));
        return;
    }
    launch(run(way, std::move(programId)), this);
}

Task<> DocumentSharing::run(Way way, QString programId) {
    const QPointer<DocumentSharing> self(this);
    set_isSharing(true);
    QString failure;
    try {
        auto sharing = share(way, std::move(programId));
        co_await sharing;
    } catch (const std::exception& error) {
        failure = describeFailure(error);
    }
    if (!self) co_return;
    set_isSharing(false);
    if (!failure.isEmpty()) fail(failure);
}

Task<> DocumentSharing::share(Way way, QString programId) {
    const QPointer<DocumentSharing> self(this);
    const auto sharing = services_.sharing;
    const auto pasteboard = services_.pasteboard;
    const QString name = name_;
    const QString path = newSharedFile(name, fileExtension(sharedFormat));
    auto exporting = editor_.outputModel().exportImage(path, sharedFormat);
    co_await exporting;
    if (way == Way::email) {
        auto mailing = sharing->email(path, name);
        co_await mailing;
    } else if (way == Way::openWith) {
        sharing->openWith(programId, path);
    } else if (!pasteboard->writeFiles({path})) {
        throw ExportError::clipboardFailed();
    } else if (self) {
        editor_.set_toastMessage(Kestrio::tr("Copied as a file"));
    }
}

}  // namespace kestrio
