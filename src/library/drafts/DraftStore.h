#pragma once

#include "library/drafts/DraftFolder.h"

namespace kestrio {

/// A draft that an earlier run has left and that this process has taken over.
struct ClaimedDraft {
    std::shared_ptr<DraftFolder> folder;
    QString name;
    QDateTime changed;
};

/// The folder of all drafts. Any thread.
class DraftStore {
  public:
    /// Of programs that have ended no more than these are kept for longer than a day.
    static constexpr std::size_t mostUnowned = 20;

    /// Nothing is made on the disk before the first draft.
    explicit DraftStore(QString folder) : folder_(std::move(folder)) {}
    /// "kestrio/drafts" below $XDG_DATA_HOME.
    static QString standardFolder();

    /// Throws DraftError::noFolder.
    std::unique_ptr<DraftFolder> create() const;
    /// Takes over all drafts that no living process has, the latest first. Damaged ones are moved
    /// aside instead; what is older than thirty days goes.
    std::vector<ClaimedDraft> claimUnowned() const;

  private:
    void removeLeftovers() const;

    QString folder_;
};

}  // namespace kestrio
