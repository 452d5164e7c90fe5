#include "library/drafts/DraftService.h"

#include "core/Log.h"

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds settleLimit(1000);

}  // namespace

DraftService::DraftService(const QString& folder)
    : store_(std::make_shared<const DraftStore>(folder)),
      queue_(std::make_unique<SerialQueue>(QStringLiteral("com.kestrio.drafts"))) {}

DraftService::~DraftService() {
    settle();
    // Ending its thread would wait for the disk; it ends with the process.
    if (overdue_ && overdue_->wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        static_cast<void>(queue_.release());
    }
}

void DraftService::async(std::function<void(const DraftStore&)> work) {
    isUsed_ = true;
    queue_->async([store = store_, work = std::move(work)] {
        stepBackForOthers();
        work(*store);
    });
}

Completion<> DraftService::run(std::function<void(const DraftStore&)> work) {
    Completion<> done;
    async([done, work = std::move(work)](const DraftStore& store) {
        auto bound = [&] { work(store); };
        done.run(bound);
    });
    return done;
}

Completion<std::vector<ClaimedDraft>> DraftService::claimUnowned() {
    Completion<std::vector<ClaimedDraft>> done;
    async([done](const DraftStore& store) {
        auto claim = [&store] { return store.claimUnowned(); };
        done.run(claim);
    });
    return done;
}

Completion<DraftDocument> DraftService::read(const ClaimedDraft& draft) {
    Completion<DraftDocument> done;
    async([done, folder = draft.folder](const DraftStore&) {
        auto reading = [&folder] { return folder->read(); };
        done.run(reading);
    });
    return done;
}

void DraftService::remove(const ClaimedDraft& draft) {
    async([folder = draft.folder](const DraftStore&) { folder->remove(); });
}

void DraftService::settle() {
    if (!isUsed_ || overdue_) return;
    const auto reached = std::make_shared<std::promise<void>>();
    queue_->async([reached] { reached->set_value(); });
    std::future<void> done = reached->get_future();
    if (done.wait_for(settleLimit) == std::future_status::ready) return;
    logLine("DraftService", QStringLiteral("the disk is too slow to wait for"));
    overdue_ = std::move(done);
}

}  // namespace kestrio
