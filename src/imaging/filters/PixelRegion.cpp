#include "imaging/filters/PixelRegion.h"

#include <algorithm>
#include <utility>

namespace kestrio {

namespace {

/// Where a rectangle begins or ends, seen from top to bottom.
struct Event {
    int y;
    int left, end;
    int count;
};

std::vector<Event> eventsOf(const std::vector<QRect>& rects, const QRect& limit) {
    std::vector<Event> events;
    events.reserve(2 * rects.size());
    for (const QRect& rect : rects) {
        if (!rect.isValid()) continue;
        const QRect inside = rect & limit;
        if (inside.isEmpty()) continue;
        const int left = inside.left(), end = inside.left() + inside.width();
        events.push_back({inside.top(), left, end, 1});
        events.push_back({inside.top() + inside.height(), left, end, -1});
    }
    std::sort(events.begin(), events.end(),
              [](const Event& a, const Event& b) { return a.y < b.y; });
    return events;
}

/// How many rectangles cover each column, by the places where the number changes.
class Columns {
  public:
    explicit Columns(const QRect& limit) : first_(limit.left()), changes_(limit.width() + 1) {}

    void add(const Event& event) {
        changes_[event.left - first_] += event.count;
        changes_[event.end - first_] -= event.count;
    }

    std::vector<PixelRegion::Run> runs() const {
        std::vector<PixelRegion::Run> runs;
        int count = 0;
        for (std::size_t i = 0; i < changes_.size(); ++i) {
            if (changes_[i] == 0) continue;
            const int before = std::exchange(count, count + changes_[i]);
            const int x = first_ + static_cast<int>(i);
            if (before == 0) runs.push_back({x, x});
            if (count == 0) runs.back().end = x;
        }
        return runs;
    }

  private:
    int first_;
    std::vector<int> changes_;
};

/// Joins parts of one strip, given from top to bottom, to tiles.
class TileStack {
  public:
    TileStack(const PixelRegion::Tiling& tiling, std::vector<QRect>& tiles)
        : tiling_(tiling), tiles_(tiles) {}
    ~TileStack() { close(); }

    TileStack(const TileStack&) = delete;
    TileStack& operator=(const TileStack&) = delete;

    void add(QRect part) {
        if (current_.isValid()) {
            const QRect joined = current_ | part;
            if (part.top() - current_.bottom() - 1 <= tiling_.gap &&
                joined.height() <= tiling_.height) {
                current_ = joined;
                return;
            }
            close();
        }
        while (part.height() > tiling_.height) {
            tiles_.emplace_back(part.left(), part.top(), part.width(), tiling_.height);
            part.setTop(part.top() + tiling_.height);
        }
        current_ = part;
    }

  private:
    void close() {
        if (current_.isValid()) tiles_.push_back(current_);
    }

    const PixelRegion::Tiling tiling_;
    std::vector<QRect>& tiles_;
    QRect current_;
};

/// The tiles row by row, those of equal rows that touch as one.
std::vector<QRect> joinedAcross(std::vector<QRect> tiles, int greatestWidth) {
    std::sort(tiles.begin(), tiles.end(), [](const QRect& a, const QRect& b) {
        return std::tuple(a.top(), a.bottom(), a.left()) <
               std::tuple(b.top(), b.bottom(), b.left());
    });
    std::vector<QRect> joined;
    for (const QRect& tile : tiles) {
        if (!joined.empty()) {
            QRect& last = joined.back();
            if (last.top() == tile.top() && last.bottom() == tile.bottom() &&
                last.right() + 1 == tile.left() && last.width() + tile.width() <= greatestWidth) {
                last.setRight(tile.right());
                continue;
            }
        }
        joined.push_back(tile);
    }
    return joined;
}

}  // namespace

PixelRegion::PixelRegion(const std::vector<QRect>& rects, const QRect& limit) {
    const std::vector<Event> events = eventsOf(rects, limit);
    if (events.empty()) return;
    Columns columns(limit);
    for (std::size_t i = 0; i < events.size();) {
        const int y = events[i].y;
        for (; i < events.size() && events[i].y == y; ++i)
            columns.add(events[i]);
        if (i < events.size()) append({y, events[i].y, columns.runs()});
    }
}

PixelRegion PixelRegion::clipped(const QRect& limit) const {
    return isWithin(limit) ? *this : PixelRegion(rects(), limit);
}

bool PixelRegion::isWithin(const QRect& limit) const {
    return std::all_of(bands_.begin(), bands_.end(), [&](const Band& band) {
        return limit.contains(QRect(QPoint(band.runs.front().left, band.top),
                                    QPoint(band.runs.back().end - 1, band.end - 1)));
    });
}

void PixelRegion::append(Band band) {
    if (band.runs.empty()) return;
    if (!bands_.empty() && bands_.back().end == band.top && bands_.back().runs == band.runs) {
        bands_.back().end = band.end;
        return;
    }
    bands_.push_back(std::move(band));
}

std::span<const PixelRegion::Run> PixelRegion::runs(int y) const {
    const auto band = std::upper_bound(bands_.begin(), bands_.end(), y,
                                       [](int row, const Band& b) { return row < b.end; });
    if (band == bands_.end() || y < band->top) return {};
    return band->runs;
}

std::vector<QRect> PixelRegion::rects() const {
    std::vector<QRect> rects;
    for (const Band& band : bands_) {
        for (const Run& run : band.runs)
            rects.emplace_back(run.left, band.top, run.end - run.left, band.end - band.top);
    }
    return rects;
}

std::vector<QRect> PixelRegion::tiles(const Tiling& tiling) const {
    std::vector<QRect> tiles;
    int end = 0;
    for (const Band& band : bands_)
        end = std::max(end, band.runs.back().end);
    for (int strip = 0; strip < end; strip += tiling.width)
        addTiles(strip, tiling, tiles);
    return joinedAcross(std::move(tiles), tiling.greatestWidth);
}

void PixelRegion::addTiles(int strip, const Tiling& tiling, std::vector<QRect>& tiles) const {
    TileStack stack(tiling, tiles);
    const int stripEnd = strip + tiling.width;
    for (const Band& band : bands_) {
        const auto first = std::upper_bound(band.runs.begin(), band.runs.end(), strip,
                                            [](int x, const Run& run) { return x < run.end; });
        const auto last = std::lower_bound(first, band.runs.end(), stripEnd,
                                           [](const Run& run, int x) { return run.left < x; });
        if (first == last) continue;
        const int left = std::max(first->left, strip);
        const int right = std::min(std::prev(last)->end, stripEnd) - 1;
        stack.add(QRect(QPoint(left, band.top), QPoint(right, band.end - 1)));
    }
}

}  // namespace kestrio
