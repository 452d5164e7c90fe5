#include "platform/linux/recognition/TextAreas.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

constexpr double usualScale = 0.6;  // type of 11 pixels is found, and each line for itself
constexpr double leastScale = 0.5;
constexpr double usualPixels = 2.2e6;
constexpr double tilePixels = 2.6e6;  // of the copy
constexpr int tileOverlap = 160;      // pixels of the picture

bool areInOneRow(const QRect& a, const QRect& b) {
    const int shared = std::min(a.bottom(), b.bottom()) - std::max(a.top(), b.top()) + 1;
    const int smaller = std::min(a.height(), b.height());
    return shared > smaller * 7 / 10 && std::max(a.height(), b.height()) < smaller * 17 / 10;
}

bool areOneLine(const QRect& a, const QRect& b) {
    if (!areInOneRow(a, b)) return false;
    const int gap = std::max(a.left(), b.left()) - std::min(a.right(), b.right());
    return gap < std::min(a.height(), b.height()) / 5;
}

}  // namespace

SearchPlan searchPlan(QRect region) {
    SearchPlan plan;
    const double pixels = static_cast<double>(region.width()) * region.height();
    plan.scale = pixels > usualPixels ? leastScale : usualScale;
    const double rows = tilePixels / (plan.scale * plan.scale) / region.width();
    const int height = std::max(2 * tileOverlap, static_cast<int>(rows));
    for (int top = region.top();; top += height - tileOverlap) {
        const QRect tile(region.left(), top, region.width(), height);
        plan.tiles.push_back(tile.intersected(region));
        if (tile.bottom() >= region.bottom()) return plan;
    }
}

bool isCutByTile(QRect area, QRect tile, QRect region) {
    constexpr int closeness = 2;  // pixels
    if (area.height() > tileOverlap - closeness) return false;
    const bool isAtTop = tile.top() > region.top() && area.top() <= tile.top() + closeness;
    const bool isAtBottom =
        tile.bottom() < region.bottom() && area.bottom() >= tile.bottom() - closeness;
    return isAtTop || isAtBottom;
}

std::vector<QRect> joinedAreas(std::vector<QRect> areas) {
    std::sort(areas.begin(), areas.end(),
              [](const QRect& a, const QRect& b) { return a.left() < b.left(); });
    std::vector<QRect> joined;
    for (const QRect& area : areas) {
        const auto same = std::find_if(joined.begin(), joined.end(), [&area](const QRect& other) {
            return areOneLine(other, area);
        });
        if (same == joined.end())
            joined.push_back(area);
        else
            *same |= area;
    }
    return joined;
}

void sortForReading(std::vector<RecognizedLine>& lines) {
    std::sort(lines.begin(), lines.end(), [](const RecognizedLine& a, const RecognizedLine& b) {
        return a.rect.center().y() < b.rect.center().y();
    });
    for (auto first = lines.begin(); first != lines.end();) {
        // A row is what its first line reaches, so that slanted rows do not hang together.
        const double limit = first->rect.center().y() + first->rect.height() / 2;
        const auto end = std::find_if(first, lines.end(), [limit](const RecognizedLine& line) {
            return line.rect.center().y() > limit;
        });
        std::sort(first, end, [](const RecognizedLine& a, const RecognizedLine& b) {
            return a.rect.left() < b.rect.left();
        });
        first = end;
    }
}

}  // namespace kestrio
