#include "app/program/ImageIntake.h"

#include "core/Localisation.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/PictureLoading.h"

#include <QFileInfo>
#include <QPointer>

namespace kestrio {

namespace {

const std::vector<FileType>& importTypes() {
    static const std::vector<FileType> types = {
        {Kestrio::tr("Pictures"), readableSuffixes()},
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
    if (!isPasting_) launch(paste(), this);
}

Task<> ImageIntake::paste() {
    const QPointer<ImageIntake> self(this);
    const auto pasteboard = pasteboard_;
    PasteboardContents found;
    QString failure;
    isPasting_ = true;
    try {
        auto reading =
            pasteboard->read({PasteboardKind::picture, PasteboardKind::files}, stop_.get_token());
        found = co_await reading;
    } catch (const PasteboardError& error) {
        failure = error.errorDescription();
    }
    if (!self) co_return;
    isPasting_ = false;
    QImage picture = found.image;
    QString name = Kestrio::tr("Clipboard");
    if (!found.files.isEmpty()) {
        name = QFileInfo(found.files.front()).completeBaseName();
        try {
            auto loading = loadPicture(found.files.front());
            const LoadedPicture loaded = co_await loading;
            picture = loaded.bitmap;
        } catch (const Error&) {
            // Reported below, as for every other clipboard without a picture.
        }
        if (!self) co_return;
    }
    if (picture.isNull()) {
        auto telling = reportNothingToPaste(std::move(failure));
        co_await telling;
    } else {
        captures_.openImage(Image(std::move(picture)), name);
    }
}

Task<> ImageIntake::reportNothingToPaste(QString failure) {
    AlertRequest request;
    request.style = AlertStyle::informational;
    request.title = Kestrio::tr("No Image in Clipboard");
    request.text = failure.isEmpty()
                       ? Kestrio::tr("Please copy an image to the clipboard first, then try again.")
                       : failure;
    request.buttons = {Kestrio::tr("OK")};
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
    request.title = Kestrio::tr("Select an image to beautify");
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
