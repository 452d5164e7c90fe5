#include "app/cli/StitchRun.h"

#include "core/Stopwatch.h"
#include "imaging/Image.h"
#include "imaging/codecs/PictureLoading.h"
#include "scrolling/stitch/ScrollingStitchEngine.h"

#include <algorithm>

namespace kestrio {

namespace {

// A file that was read, or why it was not.
struct FrameFile {
    QImage bitmap;
    QString failure;
};

Task<FrameFile> readFrame(QString path) {
    FrameFile file;
    try {
        auto loading = loadPicture(std::move(path));
        LoadedPicture loaded = co_await loading;
        file.bitmap = inCanonicalFormat(std::move(loaded.bitmap));
    } catch (const Cancelled&) {
        throw;
    } catch (const std::exception& error) {
        file.failure = describeFailure(error);
    }
    co_return file;
}

bool isRefused(const ScrollingStitchOutcome& outcome) {
    using enum ScrollingStitchDisposition;
    switch (outcome.disposition) {
        case seeded:
        case appended:
        case duplicate:
        case noMotion:
            return false;
        case matchFailed:
        case discontinuity:
        case horizontalMotion:
        case outputLimitReached:
            break;
    }
    return true;
}

// Whether the frame shows something that the picture lacks.
bool leavesGap(const ScrollingStitchOutcome& outcome) {
    return isRefused(outcome) && outcome.obstacle != StitchObstacle::movedBack;
}

// One file after the other; the engine is used by one thread at a time.
class StitchRun {
  public:
    explicit StitchRun(StitchBreaks breaks) : breaks_(breaks) {}

    void take(const QString& input, const FrameFile& file) {
        StitchedFrame frame{input, {}, false, file.failure};
        if (frame.wasRead()) {
            frame.outcome = engine_.ingest(file.bitmap);
            if (breaks_ == StitchBreaks::join && leavesGap(frame.outcome)) joinAsBreak(frame, file);
            noteGaps(frame.outcome);
        } else {
            hasGap_ = true;
        }
        result_.frames.push_back(std::move(frame));
        result_.peakRetainedBytes =
            std::max(result_.peakRetainedBytes, engine_.retainedStorageBytes());
    }

    StitchResult finish() {
        engine_.settle();
        result_.picture = engine_.compose();
        result_.isIncomplete = hasGap_;
        return std::move(result_);
    }

  private:
    void joinAsBreak(StitchedFrame& frame, const FrameFile& file) {
        const ScrollingStitchOutcome joined = engine_.ingestAsBreak(file.bitmap);
        frame.isBreak = joined.appended;
        if (!joined.appended) return;
        frame.outcome.addedHeightPixels = joined.addedHeightPixels;
        frame.outcome.appended = true;
        frame.outcome.totalHeightPixels = joined.totalHeightPixels;
    }

    void noteGaps(const ScrollingStitchOutcome& outcome) {
        if (outcome.appended) {
            hasGap_ = false;
        } else if (leavesGap(outcome)) {
            hasGap_ = true;
        }
    }

    const StitchBreaks breaks_;
    ScrollingStitchEngine engine_;
    StitchResult result_;
    bool hasGap_ = false;
};

}  // namespace

Task<StitchResult> stitchFiles(StitchRequest request,
                               std::function<void(int number, QString file)> progress,
                               std::stop_token stop) {
    Stopwatch stopwatch;
    const auto run = std::make_shared<StitchRun>(request.breaks);
    SerialQueue queue(QStringLiteral("com.kestrio.stitch"));
    const QStringList& files = request.frames;
    auto reading = readFrame(files.front());
    for (int i = 0; i < files.size(); ++i) {
        progress(i + 1, files[i]);
        const FrameFile file = co_await reading;
        if (stop.stop_requested()) throw Cancelled();
        if (i + 1 < files.size()) reading = readFrame(files[i + 1]);
        const auto taking = runOn(queue, [run, input = files[i], file] { run->take(input, file); });
        co_await taking;
        if (stop.stop_requested()) throw Cancelled();
    }
    const auto finishing = runOn(queue, [run] { return run->finish(); });
    StitchResult result = co_await finishing;
    constexpr double millisecondsPerSecond = 1000;
    result.seconds = stopwatch.lap() / millisecondsPerSecond;
    co_return result;
}

}  // namespace kestrio
