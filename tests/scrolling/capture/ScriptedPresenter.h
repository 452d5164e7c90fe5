#pragma once

#include "scrolling/capture/ScrollingPresenter.h"

#include <functional>
#include <vector>

namespace kestrio {

/// Remembers what it was told to show. Its user is the test.
class ScriptedPresenter : public ScrollingPresenter {
  public:
    std::vector<ScrollingPresentation> begun;
    std::vector<ScrollingProgress> progress;
    int flashCount = 0;
    int startedCount = 0;
    int stitchingCount = 0;
    bool isShown = false;
    /// Called for each frame that was accepted.
    std::function<void()> onFlash;

    void begin(const ScrollingPresentation& presentation) override {
        begun.push_back(presentation);
        isShown = true;
    }
    void showProgress(const ScrollingProgress& shown) override { progress.push_back(shown); }
    void flash() override {
        ++flashCount;
        if (onFlash) onFlash();
    }
    void showStarted() override { ++startedCount; }
    void showStitching() override { ++stitchingCount; }
    void end() override { isShown = false; }
};

}  // namespace kestrio
