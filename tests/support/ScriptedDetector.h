#pragma once

#include "text/detection/SensitiveInfoDetector.h"

#include <functional>

namespace kestrio {

/// Finds what a test has written into `results`, or fails on demand.
class ScriptedDetector : public SensitiveInfoDetectorProtocol {
  public:
    std::vector<DetectionResult> results;
    QString missing;                        ///< what obstacle() says
    std::function<void()> fail;             ///< throws
    std::chrono::milliseconds duration{0};  ///< how long each search takes
    std::vector<Image> searched;
    int stoppedCount = 0;

    QString obstacle() const override { return missing; }

    Task<std::vector<DetectionResult>> detect(Image image, std::stop_token stop) override {
        searched.push_back(image);
        try {
            const auto work = sleepFor(duration, stop);
            co_await work;
        } catch (const Cancelled&) {
            ++stoppedCount;
            throw;
        }
        if (fail) fail();
        // GCC 12 moves from a member that is returned.
        std::vector<DetectionResult> found = results;
        co_return found;
    }
};

}  // namespace kestrio
