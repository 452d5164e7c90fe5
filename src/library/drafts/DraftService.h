#pragma once

#include "core/Task.h"
#include "library/drafts/DraftStore.h"

namespace kestrio {

/// The drafts of this process and the thread that alone touches them, so that the main loop never
/// waits for the disk. Main thread.
class DraftService {
  public:
    explicit DraftService(const QString& folder = DraftStore::standardFolder());
    /// Waits for what is still to be written, as settle().
    ~DraftService();

    DraftService(const DraftService&) = delete;
    DraftService& operator=(const DraftService&) = delete;

    /// As DraftStore::claimUnowned().
    Completion<std::vector<ClaimedDraft>> claimUnowned();
    /// Throws DraftError::damaged.
    Completion<DraftDocument> read(const ClaimedDraft& draft);
    void remove(const ClaimedDraft& draft);

    /// Runs `work` after everything that was asked for before; it must not throw.
    void async(std::function<void(const DraftStore&)> work);
    /// The same to be awaited; what it throws is rethrown.
    Completion<> run(std::function<void(const DraftStore&)> work);

    /// Waits until all that was asked for is done, but at most a second; a disk that hangs is not
    /// waited for twice.
    void settle();

  private:
    std::shared_ptr<const DraftStore> store_;
    std::unique_ptr<SerialQueue> queue_;
    bool isUsed_ = false;
    std::optional<std::future<void>> overdue_;  ///< what settle() has not seen come
};

}  // namespace kestrio
