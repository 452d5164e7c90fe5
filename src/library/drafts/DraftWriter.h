#pragma once

#include "library/drafts/DraftService.h"

#include <QObject>

namespace kestrio {

/// Keeps the draft of one document as its maker wants it. While one change is being written, only
/// the latest of those that follow waits. Main thread.
class DraftWriter : public QObject {
    Q_OBJECT

  public:
    /// Gives what is to be kept, or nothing where the draft is to go. It is called away from the
    /// main thread.
    using Make = std::function<std::optional<DraftDocument>()>;

    /// `taken` is the draft that goes on; a new one is made where it is null.
    DraftWriter(std::shared_ptr<DraftService> service, std::shared_ptr<DraftFolder> taken = {},
                QObject* parent = nullptr);
    /// What waits is still written.
    ~DraftWriter() override;

    void update(Make make);
    /// The disk does not take the draft; what it has of it stays.
    Q_SIGNAL void failed(const QString& reason);

  private:
    /// Used on the service's thread alone.
    struct Place {
        std::shared_ptr<DraftFolder> folder;
    };
    using Work = std::function<void(const DraftStore&)>;

    static void apply(const DraftStore& store, Place& place, const Make& make);
    Work takeNext();
    Task<> writeAll();

    std::shared_ptr<DraftService> service_;
    std::shared_ptr<Place> place_;
    Make next_;
    bool isWriting_ = false;
};

}  // namespace kestrio
