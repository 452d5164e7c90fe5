#pragma once

#include "capture/ScreenSnapshotProvider.h"
#include "scrolling/capture/ScrollingFrameSource.h"
#include "scrolling/capture/ScrollingRun.h"

namespace kestrio {

/// Takes frames while the user scrolls. Main thread.
class ManualScrolling : public QObject {
    Q_OBJECT

  public:
    ManualScrolling(std::shared_ptr<ScrollingRun> run,
                    std::shared_ptr<ScrollingFrameSourceProtocol> source,
                    std::shared_ptr<ScreenSnapshotProviderProtocol> snapshots);
    ~ManualScrolling() override;

    /// Until the run has ended. Failures end the run and are not thrown.
    static Task<> capture(std::shared_ptr<ManualScrolling> self);
    /// Ends the source. After a run that is to be finished, the screen as it is now comes last: the
    /// last of what was scrolled may not have been delivered yet.
    static Task<> stop(std::shared_ptr<ManualScrolling> self, ScrollingEnding::Kind ending);

  private:
    void judge(const ScrollingSourceFrame& frame, const ScrollingStitchOutcome& outcome);
    Task<bool> waitForFirstFrame();

    std::shared_ptr<ScrollingRun> run_;
    std::shared_ptr<ScrollingFrameSourceProtocol> source_;
    std::shared_ptr<ScreenSnapshotProviderProtocol> snapshots_;
};

}  // namespace kestrio
