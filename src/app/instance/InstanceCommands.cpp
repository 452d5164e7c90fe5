#include "app/instance/InstanceCommands.h"

#include "app/instance/RequestCheck.h"
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

Task<NamedPicture> pictureFor(InstanceRequest request, std::shared_ptr<Pasteboard> pasteboard) {
    if (request.file.isEmpty()) {
        auto reading = pasteboard->read(PasteboardKind::picture);
        const PasteboardContents pasted = co_await reading;
        if (pasted.isEmpty()) throw NothingToEdit();
        co_return NamedPicture{Image(pasted.image, request.density), Kestrio::tr("Clipboard")};
    }
    auto loading = loadPicture(request.file);
    const LoadedPicture loaded = co_await loading;
    co_return NamedPicture{Image(loaded.bitmap, request.density),
                           printableText(QFileInfo(request.file).completeBaseName())};
}

// Why this cannot be done; empty where nothing speaks against it.
Task<QString> faultWith(InstanceRequest request) {
    if (const QString fault = faultOf(request); !fault.isEmpty()) co_return fault;
    if (request.output.isEmpty()) co_return QString();
    QString fault;
    try {
        auto looking =
            runOnStorage([path = request.output] { return faultOfOutput(path); }, readLimit);
        fault = co_await looking;
    } catch (const std::exception& error) {
        fault = request.output + QStringLiteral(": ") + describeFailure(error);
    }
    co_return fault;
}

InstanceReply replyFor(const std::exception& error) {
    const CaptureError failure = CaptureError::from(error);
    if (failure.which() == CaptureError::Case::cancelled) return InstanceReply::cancelled();
    return InstanceReply::failed(describeFailure(error));
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
    const QPointer<InstanceCommands> self(this);
    auto checking = faultWith(request);
    const QString fault = co_await checking;
    if (!self) co_return InstanceReply::cancelled();
    if (!fault.isEmpty()) co_return InstanceReply::wrongUsage(fault);
    switch (request.verb) {
        case InstanceVerb::activate:
            activate_();
            co_return InstanceReply::done();
        case InstanceVerb::edit: {
            auto editing = edit(std::move(request));
            co_return co_await editing;
        }
        case InstanceVerb::capture: {
            auto capturing = capture(std::move(request), std::move(stop));
            co_return co_await capturing;
        }
    }
    co_return InstanceReply();
}

Task<InstanceReply> InstanceCommands::capture(InstanceRequest request, std::stop_token stop) {
    const QPointer<CaptureCoordinator> captures(&captures_);
    InstanceReply reply;
    try {
        auto capturing = captures_.capture(request.captureRequest(), std::move(stop));
        const CaptureReport report = co_await capturing;
        reply = InstanceReply::done(report.savedPath);
    } catch (const CaptureError& error) {
        reply = replyFor(error);
        if (captures && request.isUnattended) captures->report(error);
    } catch (const std::exception& error) {
        reply = replyFor(error);
        if (captures && request.isUnattended) captures->report(CaptureError::from(error));
    }
    co_return reply;
}

Task<InstanceReply> InstanceCommands::edit(InstanceRequest request) {
    const QPointer<CaptureCoordinator> captures(&captures_);
    InstanceReply reply;
    try {
        auto finding = pictureFor(std::move(request), pasteboard_);
        const NamedPicture picture = co_await finding;
        if (!captures) co_return InstanceReply::cancelled();
        captures->openImage(picture.image, picture.name);
    } catch (const std::exception& error) {
        reply = replyFor(error);
    }
    co_return reply;
}

}  // namespace kestrio
