#include "scrolling/motion/ExactBands.h"

#include <algorithm>

namespace kestrio {

namespace {

// Fewer cells that stay are a caret or a coincidence.
constexpr int fewestCells = 6;
constexpr int fewestForeignRows = 2;
constexpr int fewestWidgetRows = 3;
// Of five strips, one may differ within a band: a clock or a caret changes it.
constexpr int toleratedDivisor = 5;
// The parts of the height in which bars are sought, and that what stays may take.
constexpr int barDivisor = 4, tallestDivisor = 2;

StripEdges edgesOf(const std::uint32_t* before, const std::uint32_t* now, int height) {
    StripEdges edges;
    while (edges.top < height && before[edges.top] == now[edges.top])
        ++edges.top;
    const auto fromBottom = [height](int rows) { return height - 1 - rows; };
    while (edges.bottom < height - edges.top &&
           before[fromBottom(edges.bottom)] == now[fromBottom(edges.bottom)])
        ++edges.bottom;
    return edges;
}

class BandSearch {
  public:
    BandSearch(const ComparedFrames& frames, int deltaY, const std::vector<bool>& movingStrips)
        : frames_(frames), deltaY_(deltaY), height_(frames.current.height()) {
        for (int strip = 0; strip < frames.current.strips(); ++strip)
            if (movingStrips[strip]) strips_.push_back(strip);
    }

    ExactBands result() const {
        ExactBands found;
        if (strips_.empty()) return found;
        const StripEdges common = commonEdges();
        const bool topStays = countUnchanged(0, common.top) >= fewestCells;
        const bool bottomStays = countUnchanged(height_ - common.bottom, height_) >= fewestCells;
        found.bands.top = std::max(topStays ? common.top : 0, foreignTop());
        found.bands.bottom = bottomBar(bottomStays ? common.bottom : 0);
        found.bottomLimit = common.bottom;
        for (int strip = 0; strip < frames_.current.strips(); ++strip)
            found.widgets = std::max(found.widgets, widgetHeight(strip));
        return found;
    }

  private:
    // Rows that are the same in both frames in nearly all strips.
    StripEdges commonEdges() const {
        std::vector<int> tops, bottoms;
        for (const int strip : strips_) {
            tops.push_back(frames_.edges[strip].top);
            bottoms.push_back(frames_.edges[strip].bottom);
        }
        std::ranges::sort(tops);
        std::ranges::sort(bottoms);
        const std::size_t index = tops.size() / toleratedDivisor;
        const int tallest = height_ / tallestDivisor;
        return {std::min(tops[index], tallest), std::min(bottoms[index], tallest)};
    }

    int countUnchanged(int from, int to) const {
        int count = 0;
        for (const int strip : strips_) {
            const std::uint32_t* unchanged = frames_.unchangedCells(strip);
            count += int(std::count_if(unchanged + from, unchanged + to,
                                       [](std::uint32_t cell) { return cell != 0; }));
        }
        return count;
    }

    // Whether row `y` of the current frame shows, in most strips, something else than the row that
    // the motion brings there. Both flat and translucent bars do.
    bool isForeign(int y) const {
        int differing = 0;
        for (const int strip : strips_)
            differing +=
                frames_.current.hashes(strip)[y] != frames_.previous.hashes(strip)[y + deltaY_];
        return differing * 2 >= int(strips_.size());
    }

    // The row of the current frame in the middle of what both show: foreign rows above it are those
    // of a bar at its top, the ones below it those of a bar at the bottom of the previous frame.
    int middle() const { return (height_ - deltaY_) / 2; }

    // A bar at the top of the current frame covers what the previous one showed.
    int foreignTop() const {
        int rows = 0, tallest = 0;
        for (int y = 0; y < std::min(height_ / barDivisor, middle()); ++y) {
            if (!isForeign(y)) continue;
            ++rows;
            tallest = y + 1;
        }
        return rows >= fewestForeignRows ? tallest : 0;
    }

    // A bar at the bottom of the previous frame covered what the current one shows; one that is new
    // covers what the previous one showed above its own.
    int bottomBar(int unchangedRows) const {
        const int before = std::max(unchangedRows, foreignHeight(deltaY_, height_));
        return std::max(before, foreignHeight(0, height_ - before));
    }

    // Rows from the bottom up to the highest foreign one of the lowest quarter. Rows lie in the
    // previous frame where `shift` is the motion and in the current one where it is 0; in the
    // previous frame they lie above `end`.
    int foreignHeight(int shift, int end) const {
        int rows = 0, tallest = 0;
        for (int fromBottom = 1; fromBottom <= height_ / barDivisor; ++fromBottom) {
            const int y = height_ - fromBottom - shift;
            if (y < middle() || y + deltaY_ >= end || !isForeign(y)) continue;
            ++rows;
            tallest = fromBottom;
        }
        return rows >= fewestForeignRows ? tallest : 0;
    }

    // The rows of a strip, from `from` on, that stay although the motion would have taken them
    // elsewhere: how many of them say so, and the highest.
    struct StayingRows {
        int count = 0;
        int highest = 0;
    };
    StayingRows stayingRows(int strip, int from, int to) const {
        const std::uint32_t* unchanged = frames_.unchangedCells(strip);
        const std::uint32_t* before = frames_.previous.hashes(strip);
        const std::uint32_t* now = frames_.current.hashes(strip);
        StayingRows rows{0, to};
        for (int y = to - 1; y >= from; --y) {
            if (!unchanged[y]) continue;
            if (y >= deltaY_ && now[y - deltaY_] == before[y]) continue;
            ++rows.count;
            rows.highest = y;
        }
        return rows;
    }

    // A strip that stays further up too is a sidebar.
    int widgetHeight(int strip) const {
        const int half = height_ - height_ / tallestDivisor;
        if (stayingRows(strip, height_ / barDivisor, half).count >= fewestWidgetRows) return 0;
        const StayingRows rows = stayingRows(strip, half, height_);
        return rows.count >= fewestWidgetRows ? height_ - rows.highest : 0;
    }

    const ComparedFrames& frames_;
    const int deltaY_;
    const int height_;
    std::vector<int> strips_;
};

}  // namespace

ComparedFrames compareFrames(const RowSignature& previous, const RowSignature& current) {
    const int height = current.height();
    ComparedFrames frames{previous, current, {}, {}};
    frames.unchanged.resize(std::size_t(height) * current.strips());
    for (int strip = 0; strip < current.strips(); ++strip) {
        const std::uint32_t* before = previous.hashes(strip);
        const std::uint32_t* now = current.hashes(strip);
        const std::uint32_t* keys = current.keys(strip);
        std::uint32_t* unchanged = frames.unchanged.data() + std::size_t(strip) * height;
        for (int y = 0; y < height; ++y)
            unchanged[y] = before[y] == now[y] && keys[y] != 0 ? ~0u : 0u;
        frames.edges.push_back(edgesOf(before, now, height));
    }
    return frames;
}

ExactBands findBands(const ComparedFrames& frames, int deltaY,
                     const std::vector<bool>& movingStrips) {
    return BandSearch(frames, deltaY, movingStrips).result();
}

}  // namespace kestrio
