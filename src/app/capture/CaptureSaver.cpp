#include "app/capture/CaptureSaver.h"

#include "core/Localisation.h"
#include "core/Log.h"
#include "library/export/QuickSave.h"

#include <QDir>
#include <QFileInfo>

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds toastTime(2000);

enum class Rescue { chooseFolder, discard, openEditor };

AlertRequest rescueQuestion(const QString& reason) {
    AlertRequest request;
    request.style = AlertStyle::warning;
    request.title = Kestrio::tr("The Screenshot Was Not Saved");
    request.text = Kestrio::tr("%1\nIt is still here: choose another folder for it.").arg(reason);
    // The last one is what Escape stands for, and loses nothing.
    request.buttons = {Kestrio::tr("Choose Folder…"), Kestrio::tr("Discard"),
                       Kestrio::tr("Open in Editor")};
    return request;
}

// What was written; why not where that failed.
struct Attempt {
    QString path;
    QString failure;
};

Task<Attempt> tryToSave(CaptureCollaborators with, Image image, QString folder) {
    AppSettings settings = with.settings->load();
    if (!folder.isEmpty()) settings.defaultSavePath = folder;
    const ExportFormat format = settings.defaultExportFormat;
    Attempt attempt;
    SaveTarget target = quickSaveTarget(settings, QDateTime::currentDateTime(), format);
    try {
        auto saving = with.exporter->saveImage(std::move(image), std::move(target), format, {});
        const SavedFile saved = co_await saving;
        attempt.path = saved.path;
    } catch (const std::exception& error) {
        attempt.failure = describeFailure(error);
        logLine("CaptureCoordinator", QStringLiteral("saving: ") + attempt.failure);
    }
    co_return attempt;
}

Task<Rescue> askHowToRescue(CaptureCollaborators with, QString reason, std::stop_token stop) {
    auto asking = with.alerts->show(rescueQuestion(reason), std::move(stop));
    co_return static_cast<Rescue>(co_await asking);
}

Task<std::optional<QString>> chooseFolder(CaptureCollaborators with, std::stop_token stop) {
    OpenPanelRequest request;
    request.title = Kestrio::tr("Save the Screenshot into Folder");
    request.folder = QDir::homePath();
    auto choosing = with.fileDialogs->chooseFolder(std::move(request), std::move(stop));
    co_return co_await choosing;
}

Task<CaptureSaving> saveOrAsk(CaptureCollaborators with, Image image,
                              std::function<void()> onFailure, std::stop_token stop) {
    auto first = tryToSave(with, image, {});
    Attempt attempt = co_await first;
    if (attempt.path.isEmpty()) onFailure();
    while (attempt.path.isEmpty()) {
        auto asking = askHowToRescue(with, attempt.failure, stop);
        const Rescue rescue = co_await asking;
        if (rescue == Rescue::discard) throw Cancelled();
        if (rescue == Rescue::openEditor) co_return CaptureSaving{{}, true};
        auto choosing = chooseFolder(with, stop);
        const std::optional<QString> folder = co_await choosing;
        if (!folder) continue;
        auto again = tryToSave(with, image, *folder);
        attempt = co_await again;
    }
    with.toasts->show(Kestrio::tr("Saved to %1").arg(QFileInfo(attempt.path).fileName()),
                      toastTime);
    co_return CaptureSaving{attempt.path, false};
}

}  // namespace

Task<CaptureSaving> CaptureSaver::save(Image image, std::function<void()> onFailure,
                                       std::stop_token stop) {
    return saveOrAsk(with_, std::move(image), std::move(onFailure), std::move(stop));
}

}  // namespace kestrio
