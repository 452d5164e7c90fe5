#include "library/drafts/DraftWriter.h"

#include "core/AtomicFile.h"
#include "core/Log.h"

#include <QPointer>

namespace kestrio {

DraftWriter::DraftWriter(std::shared_ptr<DraftService> service, std::shared_ptr<DraftFolder> taken,
                         QObject* parent)
    : QObject(parent),
      service_(std::move(service)),
      place_(std::make_shared<Place>(Place{std::move(taken)})) {}

DraftWriter::~DraftWriter() {
    if (!next_) return;
    service_->async([work = takeNext()](const DraftStore& store) {
        try {
            work(store);
        } catch (const std::exception& error) {
            logLine("DraftWriter", describeFailure(error));
        }
    });
}

void DraftWriter::update(Make make) {
    next_ = std::move(make);
    if (!isWriting_) launch(writeAll(), this);
}

DraftWriter::Work DraftWriter::takeNext() {
    return [place = place_, make = std::exchange(next_, {})](const DraftStore& store) {
        apply(store, *place, make);
    };
}

Task<> DraftWriter::writeAll() {
    const QPointer<DraftWriter> self(this);
    isWriting_ = true;
    while (self && next_) {
        QString failure;
        try {
            const auto writing = service_->run(takeNext());
            co_await writing;
        } catch (const FileError& error) {
            // Which file it was means nothing to a user.
            failure = error.reason();
        } catch (const std::exception& error) {
            failure = describeFailure(error);
        }
        if (self && !failure.isEmpty()) Q_EMIT failed(failure);
    }
    if (self) isWriting_ = false;
}

void DraftWriter::apply(const DraftStore& store, Place& place, const Make& make) {
    const std::optional<DraftDocument> document = make();
    // Somebody may have cleaned the disk.
    if (place.folder && !place.folder->exists()) place.folder.reset();
    if (document) {
        if (!place.folder) place.folder = store.create();
        place.folder->write(*document);
    } else if (place.folder) {
        place.folder->remove();
        place.folder.reset();
    }
}

}  // namespace kestrio
