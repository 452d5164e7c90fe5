#include "app/shell/ImageIntake.h"

#include "core/Localisation.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/PictureLoading.h"

#include <QFileInfo>
#include <QPointer>

namespace kestrio {

namespace {

const std::vector<FileType>& importTypes() {
    static const std::vector<FileType> types = {
        {localised("Pictures"), readableSuffixes()},
    };
    return types;
}

}  // namespace

ImageIntake::ImageIntake(CaptureCoordinator& captures, std::shared_ptr<Pasteboard> pasteboard,
                         std::shared_ptr<FileDialogs> dialogs, std::shared_ptr<Alerts> alerts,
                         QObject* parent)
    : QObject(parent),
      captures_(captures),
      pasteboard_(std::move(pasteboard)),
      dialogs_(std::move(dialogs)),
      alerts_(std::move(alerts)) {}

ImageIntake::~ImageIntake() {
    stop_.request_stop();
}

void ImageIntake::pasteFromClipboard() {
    launch(paste(), this);
}

Task<> ImageIntake::paste() {
    const QPointer<ImageIntake> self(this);
    QImage picture = pasteboard_->readImage();
    QString name = localised("Clipboard");
    const QStringList files = pasteboard_->readFiles();
    if (picture.isNull() && !files.isEmpty()) {
        name = QFileInfo(files.front()).completeBaseName();
        try {
            auto loading = loadPicture(files.front());
            const LoadedPicture loaded = co_await loading;
            picture = loaded.bitmap;
        } catch (const Error&) {
            // Told below, as for every other clipboard without a picture.
        }
        if (!self) co_return;
    }
    if (picture.isNull()) {
        auto telling = tellNothingToPaste();
        co_await telling;
    } else {
        captures_.openImage(Image(std::move(picture)), name);
    }
}

Task<> ImageIntake::tellNothingToPaste() {
    AlertRequest request;
    request.style = AlertStyle::informational;
    request.title = localised("No Image in Clipboard");
    request.text = localised("Please copy an image to the clipboard first, then try again.");
    request.buttons = {localised("OK")};
    auto shown = alerts_->show(std::move(request), stop_.get_token());
    co_await shown;
}

void ImageIntake::importImage() {
    if (isImporting_) return;
    launch(import(), this);
}

Task<> ImageIntake::import() {
    const QPointer<ImageIntake> self(this);
    OpenPanelRequest request;
    request.title = localised("Select an image to beautify");
    request.types = importTypes();
    isImporting_ = true;
    std::optional<QString> path;
    try {
        auto choosing = dialogs_->chooseOpen(std::move(request), stop_.get_token());
        path = co_await choosing;
    } catch (const Cancelled&) {
    }
    if (!self) co_return;
    isImporting_ = false;
    if (!path) co_return;
    auto loading = loadPicture(*path);
    const LoadedPicture loaded = co_await loading;
    if (!self) co_return;
    captures_.openImage(Image(loaded.bitmap), QFileInfo(*path).completeBaseName());
}

}  // namespace kestrio
