// Joining frames of a scrolled page, as `kestrio stitch` and scrolling captures do: frames of 2560
// x 1440 pixels that move by three tenths of their height. Bounds: 33 ms a frame on two cores, and
// at frame 300 at most 1.2 times of what frame 10 takes.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QPainter>

#include "core/Stopwatch.h"
#include "scrolling/stitch/ScrollingStitchEngine.h"
#include "scrolling/stitch/StitchFrame.h"
#include "support/ScrollingPage.h"

namespace kestrio {
namespace {

constexpr QSize frameSize(2560, 1440);
constexpr int step = 432;
constexpr int framesOfPage = 20;
constexpr double overlapRatio = 0.2;

enum class Bars { none, headerAndFooter };

/// Frames without end: the page begins anew where it ends.
class EndlessPage {
  public:
    explicit EndlessPage(Bars bars) {
        ScrollingPage page{QSize(frameSize.width() / 2, framesOfPage * step / 2)};
        page.scale = 2;
        if (bars == Bars::headerAndFooter) page.headerHeight = page.footerHeight = 48;
        page_ = paintScrollingPage(page);
        header_ = paintScrollingHeader(page);
        footer_ = paintScrollingFooter(page);
    }

    QImage frame(int number) const {
        QImage frame(frameSize, QImage::Format_RGB32);
        QPainter painter(&frame);
        const int y = number % framesOfPage * step;
        painter.drawImage(0, header_.height() - y, page_);
        painter.drawImage(0, header_.height() - y + page_.height(), page_);
        painter.drawImage(0, 0, header_);
        painter.drawImage(0, frame.height() - footer_.height(), footer_);
        return frame;
    }

  private:
    QImage page_, header_, footer_;
};

/// Every frame of the page, so that figures are means over easy and difficult ones.
const std::vector<QImage>& frames(Bars bars) {
    const auto all = [](Bars which) {
        const EndlessPage page(which);
        std::vector<QImage> made;
        for (int i = 0; i < framesOfPage; ++i)
            made.push_back(page.frame(i));
        return made;
    };
    static const std::vector<QImage> plain = all(Bars::none), barred = all(Bars::headerAndFooter);
    return bars == Bars::none ? plain : barred;
}

/// Each iteration takes the next pair of neighbours.
class Pairs {
  public:
    explicit Pairs(Bars bars) : frames_(frames(bars)) {}

    void next() { index_ = (index_ + 1) % (framesOfPage - 1); }
    const QImage& previous() const { return frames_[index_]; }
    const QImage& current() const { return frames_[index_ + 1]; }

  private:
    const std::vector<QImage>& frames_;
    std::size_t index_ = framesOfPage - 2;
};

void estimate(benchmark::State& state, Bars bars) {
    const ScrollingMotionEstimator estimator;
    Pairs pairs(bars);
    int moved = 0, asked = 0;
    for (auto _ : state) {
        pairs.next();
        const auto found = estimator.estimate(pairs.previous(), pairs.current(), {}, overlapRatio);
        moved += found.kind == ScrollingMotionKind::moved && std::abs(found.deltaY - step) <= 4;
        ++asked;
    }
    state.counters["right"] = double(moved) / asked;
}

/// Everything that is found out about a frame before it is compared.
void analyse(benchmark::State& state) {
    const ScrollingMotionConfig config;
    Pairs pairs(Bars::none);
    for (auto _ : state) {
        pairs.next();
        const StitchFrame frame(pairs.current(), config);
        benchmark::DoNotOptimize(frame.analysed.features().data());
    }
}

/// Takes one frame after the other, without end.
class Ingestion {
  public:
    explicit Ingestion(Bars bars) : frames_(frames(bars)) { next(); }

    /// The milliseconds that the next frame takes.
    double next() {
        const QImage& frame = frames_[std::size_t(count_++ % framesOfPage)];
        Stopwatch stopwatch;
        const ScrollingStitchOutcome outcome = engine_.ingest(frame);
        const double milliseconds = stopwatch.lap();
        peak_ = std::max(peak_, engine_.retainedStorageBytes());
        isWhole_ &= outcome.appended;
        return milliseconds;
    }

    void run(benchmark::State& state) {
        for (auto _ : state)
            state.SetIterationTime(next() / 1000);
        if (!isWhole_) state.SkipWithError("a frame was not appended");
        state.counters["retainedMB"] = double(peak_) / 1e6;
    }

    int count() const { return count_; }

  private:
    const std::vector<QImage>& frames_;
    ScrollingStitchEngine engine_;
    int count_ = 0;
    qint64 peak_ = 0;
    bool isWhole_ = true;
};

void ingest(benchmark::State& state, Bars bars) {
    Ingestion(bars).run(state);
}

/// Fifteen frames after `range(0)` others.
void growth(benchmark::State& state) {
    Ingestion ingestion(Bars::none);
    while (ingestion.count() < state.range(0))
        ingestion.next();
    ingestion.run(state);
}

/// What ingest spends on the strip that a frame adds.
void compressStrip(benchmark::State& state) {
    Pairs pairs(Bars::none);
    for (auto _ : state) {
        pairs.next();
        auto strip = makeSegment(pairs.current(), frameSize.height() - step, step);
        benchmark::DoNotOptimize(compressed(std::move(*strip)));
    }
}

void compose(benchmark::State& state) {
    ScrollingStitchEngine engine;
    for (const QImage& frame : frames(Bars::none))
        engine.ingest(frame);
    for (auto _ : state)
        benchmark::DoNotOptimize(engine.compose());
    state.counters["rows"] = engine.totalHeight();
}

void setUp(benchmark::internal::Benchmark* measured) {
    measured->MeasureProcessCPUTime()->UseRealTime()->Unit(benchmark::kMillisecond);
}

void setUpByHand(benchmark::internal::Benchmark* measured) {
    measured->MeasureProcessCPUTime()->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(estimate, plain, Bars::none)->Apply(setUp);
BENCHMARK_CAPTURE(estimate, bars, Bars::headerAndFooter)->Apply(setUp);
BENCHMARK(analyse)->Apply(setUp);
BENCHMARK_CAPTURE(ingest, plain, Bars::none)->Apply(setUpByHand);
BENCHMARK_CAPTURE(ingest, bars, Bars::headerAndFooter)->Apply(setUpByHand);
BENCHMARK(compressStrip)->Apply(setUp);
BENCHMARK(compose)->Apply(setUp);
// Twenty frames make a round, so that both take the same ones.
BENCHMARK(growth)->Arg(10)->Arg(290)->Iterations(15)->Apply(setUpByHand);

}  // namespace
}  // namespace kestrio

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
