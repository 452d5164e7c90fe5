#pragma once

#include "app/shell/EditorWindowCoordinator.h"
#include "platform/Alerts.h"

namespace kestrio {

/// Offers what earlier runs have left behind: documents with changes that were never exported, of
/// programs that ended without asking. Main thread.
class DraftRestoring : public QObject {
    Q_OBJECT

  public:
    struct Collaborators {
        std::shared_ptr<DraftService> drafts;
        std::shared_ptr<EditorWindowCoordinator> editors;
        std::shared_ptr<Alerts> alerts;
    };

    explicit DraftRestoring(Collaborators collaborators, QObject* parent = nullptr);
    ~DraftRestoring() override;

    /// Looks for drafts and, where there are any, asks once for all of them. What is neither
    /// restored nor discarded is offered by a later start.
    void offer();

  private:
    Task<> run();
    Task<> restoreAll(std::vector<ClaimedDraft> drafts);
    Task<> reportFailure(QString name, QString reason);

    Collaborators with_;
    std::stop_source stop_;
};

}  // namespace kestrio
