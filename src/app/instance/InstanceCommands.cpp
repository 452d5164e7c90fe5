#include "app/instance/InstanceCommands.h"

#include "app/instance/verbs/PathCheck.h"
#include "core/Localisation.h"
#include "core/NativePath.h"
#include "imaging/codecs/PictureLoading.h"

#include <QFileInfo>
#include <QPointer>

namespace kestrio {

namespace {

/// A picture to edit and the name that heads its window.
struct NamedPicture {
    Image image;
    QString name;
};

class NothingToEdit : public Error {
  public:
    QString errorDescription() const override {
        return Kestrio::tr("there is no picture on the clipboard; name a file to edit");
    }
};

Task<NamedPicture> pictureFor(EditVerb verb, std::shared_ptr<Pasteboard> pasteboard) {
    if (verb.file.isEmpty()) {
        auto reading = pasteboard->read(PasteboardKind::picture);
        const PasteboardContents pasted = co_await reading;
        if (pasted.isEmpty()) throw NothingToEdit();
        co_return NamedPicture{Image(pasted.image, verb.density), Kestrio::tr("Clipboard")};
    }
    auto loading = loadPicture(verb.file);
    const LoadedPicture loaded = co_await loading;
    co_return NamedPicture{Image(loaded.bitmap, verb.density),
                           printableText(QFileInfo(verb.file).completeBaseName())};
}

// Why no picture can be written there; empty where nothing speaks against it.
Task<QString> faultOnDisk(QString output) {
    QString fault;
    try {
        auto looking = runOnStorage([output] { return faultOfOutput(output); }, readLimit);
        fault = co_await looking;
    } catch (const std::exception& error) {
        fault = output + QStringLiteral(": ") + describeFailure(error);
    }
    co_return fault;
}

}  // namespace

InstanceCommands::InstanceCommands(CaptureCoordinator& captures,
                                   std::shared_ptr<Pasteboard> pasteboard,
                                   std::function<void()> activate, QObject* parent)
    : QObject(parent),
      captures_(captures),
      pasteboard_(std::move(pasteboard)),
      activate_(std::move(activate)) {}

Task<InstanceReply> InstanceCommands::run(InstanceRequest request, std::stop_token stop) {
    if (const QString fault = faultOf(request); !fault.isEmpty()) {
        co_return InstanceReply::wrongUsage(fault);
    }
    auto carrying = std::visit([&](const auto& verb) { return carryOut(verb, stop); }, request);
    co_return co_await carrying;
}

Task<InstanceReply> InstanceCommands::carryOut(ActivateVerb, std::stop_token) {
    activate_();
    co_return InstanceReply::done();
}

Task<InstanceReply> InstanceCommands::carryOut(EditVerb verb, std::stop_token) {
    const QPointer<CaptureCoordinator> captures(&captures_);
    InstanceReply reply;
    try {
        auto finding = pictureFor(std::move(verb), pasteboard_);
        const NamedPicture picture = co_await finding;
        if (!captures) co_return InstanceReply::cancelled();
        captures->openImage(picture.image, picture.name);
    } catch (const std::exception& error) {
        reply = InstanceReply::failed(FlowFailure::from(error));
    }
    co_return reply;
}

Task<InstanceReply> InstanceCommands::carryOut(CaptureVerb verb, std::stop_token stop) {
    const QPointer<CaptureCoordinator> captures(&captures_);
    if (!verb.output.isEmpty()) {
        auto looking = faultOnDisk(verb.output);
        const QString fault = co_await looking;
        if (!captures) co_return InstanceReply::cancelled();
        if (!fault.isEmpty()) co_return InstanceReply::wrongUsage(fault);
    }
    InstanceReply reply;
    try {
        auto capturing = captures->capture(verb.captureRequest(), std::move(stop));
        const CaptureReport report = co_await capturing;
        reply = InstanceReply::done(report.savedPath);
    } catch (const std::exception& error) {
        const FlowFailure failure = CaptureCoordinator::failureOf(error);
        reply = InstanceReply::failed(failure);
        // A window of it would be in the picture of the capture that goes on.
        const bool isFree = captures && !captures->isCapturing();
        if (isFree && verb.isUnattended) captures->report(failure);
    }
    co_return reply;
}

}  // namespace kestrio
