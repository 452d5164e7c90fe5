#include "scrolling/capture/CaptureSession.h"

namespace kestrio {

namespace {

constexpr std::size_t keptFrames = 2;

}  // namespace

void CaptureSession::addFrame(const QImage& image) {
    auto kept = frames();
    kept.push_back({QUuid::createUuid(), image, nextSequenceNumber_++, QDateTime::currentDateTime(),
                    captureRegion()});
    if (kept.size() > keptFrames) kept.erase(kept.begin(), kept.end() - keptFrames);
    set_frames(std::move(kept));
}

}  // namespace kestrio
