#include "annotation/drawing/ChordOutliers.h"

#include <cmath>
#include <limits>

namespace kestrio {

namespace {

// Looking at every point so many times costs about what the hulls do.
constexpr std::size_t looksBeforeHulls = 24;

}  // namespace

/// The outlier of one chord, searched from front to back among the points above a known measure.
class ChordOutliers::Search {
  public:
    Search(const StrokePoints& points, const Chord& chord) : points_(points), chord_(chord) {}

    /// Looks at every point of [begin, end).
    void look(std::size_t begin, std::size_t end) { look(begin, end, mostOf(begin, end)); }

    /// The same, where the greatest measure among them is known.
    void look(std::size_t begin, std::size_t end, double most) {
        if (!(most > measure)) return;
        measure = most;
        index = begin + firstOfMeasure(chord_, points_.view(begin, end), most);
    }

    /// The same, passing over blocks by their hulls; `blocks` is scratch.
    void look(std::size_t begin, std::size_t end, const BlockHulls& hulls,
              std::vector<Block>& blocks) {
        constexpr std::size_t leafSize = BlockHulls::leafSize;
        const std::size_t endLeaf = end / leafSize;
        std::size_t leaf = (begin + leafSize - 1) / leafSize;
        if (leaf >= endLeaf) return look(begin, end);
        const std::size_t head = leaf * leafSize;
        const std::size_t tail = endLeaf * leafSize;

        // The greatest measure is found first, and then where it is. Corners of hulls are points of
        // the stroke, so some point has just that measure.
        const double mostOfHead = mostOf(begin, head);
        const double mostOfTail = mostOf(tail, end);
        double most = std::max(mostOfHead, mostOfTail);
        blocks.clear();
        for (; leaf < endLeaf; leaf = BlockHulls::endPoint(blocks.back().node) / leafSize) {
            const BlockHulls::Node node = hulls.largestBlock(leaf, endLeaf);
            blocks.push_back({node, farthestMeasure(chord_, hulls.hull(node))});
            most = std::max(most, blocks.back().most);
        }
        measure = std::nextafter(most, -std::numeric_limits<double>::infinity());
        look(begin, head, mostOfHead);
        for (const Block& block : blocks)
            look(block, hulls);
        look(tail, end, mostOfTail);
    }

    std::size_t index = 0;
    double measure = -1;

  private:
    double mostOf(std::size_t begin, std::size_t end) const {
        return farthestMeasure(chord_, points_.view(begin, end));
    }

    void look(const Block& block, const BlockHulls& hulls) {
        if (!(block.most + hulls.uncertainty() > measure)) return;
        if (block.node.level == 0) {
            look(BlockHulls::firstPoint(block.node), BlockHulls::endPoint(block.node));
            return;
        }
        for (const BlockHulls::Node child : BlockHulls::children(block.node))
            look(Block{child, farthestMeasure(chord_, hulls.hull(child))}, hulls);
    }

    const StrokePoints& points_;
    const Chord chord_;
};

ChordOutliers::ChordOutliers(const std::vector<QPointF>& points) : points_(points) {}

ChordOutliers::Outlier ChordOutliers::farthest(std::size_t first, std::size_t last) {
    const Chord chord = points_.chord(first, last);
    Search search(points_, chord);
    if (hulls_) {
        search.look(first + 1, last, *hulls_, blocks_);
    } else {
        search.look(first + 1, last);
        looked_ += last - first;
        if (looked_ > looksBeforeHulls * points_.size() && BlockHulls::isPossible(points_)) {
            hulls_.emplace(points_);
        }
    }
    if (search.measure < 0) return {first, -1};
    const double length = std::hypot(chord.alongX, chord.alongY);
    return {search.index,
            length > 0 ? search.measure / length : std::sqrt(std::max(0.0, search.measure))};
}

}  // namespace kestrio
