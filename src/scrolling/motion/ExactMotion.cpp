#include "scrolling/motion/ExactMotion.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "core/Parallel.h"
#include "core/Simd.h"

namespace kestrio {

namespace {

// Fewer changed cells are a caret or a hover.
constexpr int fewestCells = 6;
// A motion is a rival of the best one where it explains this part of what that explains, and hardly
// more speaks against it.
constexpr int rivalDivisor = 4;
constexpr int rivalContradictions = 3;
// Rows that repeat match under many motions; so many cells that do not must match too.
constexpr int fewestDistinctMatches = 6;
// A motion is far ahead of another where it explains nine fifths of what that explains.
constexpr int farAhead = 9, farAheadOf = 5;
// The part of what moved that must come back bit for bit under some motion.
constexpr int exactRowsDivisor = 5;
// The part of the height in which bands at the top and the bottom are sought.
constexpr int bandDivisor = 4;
// The share of the evidence that makes a motion certain.
constexpr double certainShare = 0.8;
constexpr int minimumBand = 32;
constexpr int fewestFixedRows = 2;

// The keys of a strip of the frame that content left (`from`) and of the one that it came to.
struct StripPair {
    const std::uint32_t* from;
    const std::uint32_t* to;
    const std::uint32_t* unchangedFrom;
    const std::uint32_t* unchangedTo;
};

KESTRIO_SIMD void countCells(StripPair strip, int count, MotionEvidence* evidence) {
    const std::uint32_t* __restrict from = strip.from;
    const std::uint32_t* __restrict to = strip.to;
    const std::uint32_t* __restrict unchangedFrom = strip.unchangedFrom;
    const std::uint32_t* __restrict unchangedTo = strip.unchangedTo;
    std::int32_t followed = 0, matched = 0, contradicted = 0;
    for (int y = 0; y < count; ++y) {
        const std::int32_t isSame = from[y] == to[y];
        const std::int32_t isMoving = (unchangedFrom[y] | unchangedTo[y]) == 0;
        const std::int32_t hasKey = (from[y] | to[y]) != 0;
        followed += isSame & hasKey;
        matched += isSame & hasKey & isMoving;
        contradicted += (isSame ^ 1) & isMoving;
    }
    evidence->followed += followed;
    evidence->matched += matched;
    evidence->contradicted += contradicted;
}

// Strips of ten that may differ within a band.
constexpr int toleratedDivisor = 5;
// The part of the height that a band takes at most.
constexpr int tallestBandDivisor = 2;

}  // namespace

// What the rows at one end of a frame tell about a band there.
struct ExactComparison::BandEvidence {
    int fixedCells = 0;
    int foreignRows = 0;
    int foreignHeight = 0;

    void add(const RowTally& row, int rowsToEdge, bool isUnchanged, int strips) {
        if (isUnchanged) fixedCells += row.fixed;
        if (!row.isForeign(strips)) return;
        ++foreignRows;
        foreignHeight = rowsToEdge;
    }

    int height(int unchangedRows) const {
        const int staying = fixedCells >= fewestCells ? unchangedRows : 0;
        return std::max(staying, foreignRows >= fewestFixedRows ? foreignHeight : 0);
    }
};

// A row that stays may show little, but nothing of what moves.
bool ExactComparison::RowTally::isFixed(int strips) const {
    return fixed >= std::max(1, strips / toleratedDivisor) && fixed > followed;
}

// Content that merely fails to show what it should may be an animation, unless it is most of the
// row.
bool ExactComparison::RowTally::isForeign(int strips) const {
    return foreign * 2 >= strips && foreign > followed;
}

bool MotionEvidence::showsMotion() const {
    return matched >= fewestCells && matched >= contradicted;
}

ExactComparison::ExactComparison(const RowSignature& previous, const RowSignature& current)
    : previous_(previous),
      current_(current),
      unchanged_(std::size_t(current.height()) * current.strips()) {
    const std::uint32_t* before = previous.hashes(0);
    const std::uint32_t* now = current.hashes(0);
    const std::uint32_t* keys = current.keys(0);
    for (std::size_t i = 0; i < unchanged_.size(); ++i) {
        unchanged_[i] = before[i] == now[i] && keys[i] != 0 ? ~0u : 0u;
        changedCells_ += before[i] != now[i];
        movableCells_ += before[i] != now[i] && keys[i] != 0;
    }
    for (int strip = 0; strip < current.strips(); ++strip)
        edges_.push_back(edgesOf(strip));
}

ExactComparison::StripEdges ExactComparison::edgesOf(int strip) const {
    const int height = current_.height();
    const std::uint32_t* before = previous_.hashes(strip);
    const std::uint32_t* now = current_.hashes(strip);
    StripEdges edges;
    while (edges.top < height && before[edges.top] == now[edges.top])
        ++edges.top;
    const auto fromBottom = [height](int rows) { return height - 1 - rows; };
    while (edges.bottom < height - edges.top &&
           before[fromBottom(edges.bottom)] == now[fromBottom(edges.bottom)])
        ++edges.bottom;
    return edges;
}

MotionEvidence ExactComparison::evidence(int deltaY, FixedBands bands) const {
    const int height = current_.height();
    const int distance = std::abs(deltaY);
    MotionEvidence evidence;
    for (int strip = 0; strip < current_.strips(); ++strip) {
        const StripEdges edges{std::max(edges_[strip].top, bands.top),
                               std::max(edges_[strip].bottom, bands.bottom)};
        // The key of the first row depends on the band above it.
        const int from = edges.top + 1;
        const int rows = height - from - edges.bottom - distance;
        if (rows <= 0) continue;
        const std::uint32_t* unchanged = unchanged_.data() + std::size_t(strip) * height + from;
        const std::uint32_t* before = previous_.keys(strip) + from;
        const std::uint32_t* now = current_.keys(strip) + from;
        StripPair pair{before + distance, now, unchanged + distance, unchanged};
        if (deltaY < 0) pair = {before, now + distance, unchanged, unchanged + distance};
        countCells(pair, rows, &evidence);
    }
    return evidence;
}

bool ExactComparison::isMostlyStill() const {
    const int height = current_.height();
    int stayed = 0, changed = 0;
    for (int strip = 0; strip < current_.strips(); ++strip) {
        const std::uint32_t* before = previous_.hashes(strip);
        const std::uint32_t* now = current_.hashes(strip);
        const std::uint32_t* unchanged = unchanged_.data() + std::size_t(strip) * height;
        for (int y = height / 4; y < height - height / 4; ++y) {
            stayed += unchanged[y] != 0;
            changed += before[y] != now[y];
        }
    }
    return changed <= stayed || changedCells_ < fewestCells;
}

ExactMotion ExactComparison::search(int mostUp, int mostDown) const {
    ExactMotion motion;
    if (changedCells_ < fewestCells) {
        motion.verdict = ExactMotion::Verdict::still;
        return motion;
    }
    std::vector<int> deltas;
    for (int delta = -mostDown; delta <= mostUp; ++delta)
        if (delta != 0) deltas.push_back(delta);
    std::vector<MotionEvidence> found(deltas.size());
    parallelBands(int(deltas.size()), minimumBand, [&](int first, int last) {
        for (int i = first; i < last; ++i)
            found[i] = evidence(deltas[i]);
    });
    if (found.empty()) return motion;
    const auto best = std::ranges::max_element(found, {}, &MotionEvidence::score);
    motion.evidence = *best;
    motion.deltaY = deltas[std::size_t(best - found.begin())];
    const int mostMatched = std::ranges::max(found, {}, &MotionEvidence::matched).matched;
    motion.hasExactRows = mostMatched * exactRowsDivisor >= movableCells_;
    if (!best->showsMotion()) return motion;
    const auto strips = movingStrips(motion.deltaY);
    if (std::ranges::find(strips, true) == strips.end()) return motion;
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (found[i].followed * rivalDivisor >= best->followed &&
            found[i].contradicted <= best->contradicted + rivalContradictions) {
            motion.alternatives.push_back(deltas[i]);
        }
    }
    // A band that is new contradicts every motion.
    if (motion.deltaY > 0) {
        const FixedBands bands = fixedBands(motion.deltaY).bands;
        const MotionEvidence between = evidence(motion.deltaY, bands);
        if (between.showsMotion()) motion.evidence = between;
    }
    if (motion.evidence.share() < certainShare) return motion;
    weighAlternatives(motion);
    return motion;
}

// Of several motions, the one is true under which rows match that occur only once; else one that
// explains far more than the others and leaves no more open.
void ExactComparison::weighAlternatives(ExactMotion& motion) const {
    const int chosen = motion.deltaY;
    const MotionEvidence evidenceOfChosen = evidence(chosen);
    int best = distinctMatches(chosen), bestDelta = chosen, second = 0;
    bool isFarAhead = true;
    for (const int delta : motion.alternatives) {
        if (delta == chosen) continue;
        const MotionEvidence other = evidence(delta);
        isFarAhead &= other.followed * farAhead <= evidenceOfChosen.followed * farAheadOf &&
                      other.contradicted >= evidenceOfChosen.contradicted;
        const int distinct = distinctMatches(delta);
        second = std::max(second, std::min(distinct, best));
        if (distinct > best) {
            best = distinct;
            bestDelta = delta;
        }
    }
    motion.isDistinct = best >= fewestDistinctMatches && second * rivalDivisor < best;
    if (motion.isDistinct) motion.deltaY = bestDelta;
    motion.verdict = motion.isDistinct || isFarAhead ? ExactMotion::Verdict::moved
                                                     : ExactMotion::Verdict::ambiguous;
}

int ExactComparison::distinctMatches(int deltaY) const {
    const int height = current_.height();
    int matches = 0;
    for (int strip = 0; strip < current_.strips(); ++strip) {
        const std::uint32_t* before = previous_.distinctKeys(strip);
        const std::uint32_t* now = current_.distinctKeys(strip);
        const std::uint32_t* unchanged = unchanged_.data() + std::size_t(strip) * height;
        for (int y = std::max(-deltaY, 0); y < height - std::max(deltaY, 0); ++y)
            matches += now[y] != 0 && now[y] == before[y + deltaY] && unchanged[y] == 0;
    }
    return matches;
}

std::optional<int> ExactComparison::bestWithin(MotionRange range) const {
    std::optional<int> best;
    int bestScore = std::numeric_limits<int>::min();
    for (int delta = std::max(range.least, 1); delta <= std::min(range.most, current_.height() - 1);
         ++delta) {
        const MotionEvidence found = evidence(delta);
        if (found.matched < fewestCells || found.score() <= bestScore) continue;
        best = delta;
        bestScore = found.score();
    }
    return best;
}

bool ExactComparison::hasContent(int deltaY) const {
    const MotionEvidence found = evidence(deltaY);
    return found.followed + found.contradicted > 0;
}

// Strips whose middle goes with the motion rather than standing still: a sidebar has none.
std::vector<bool> ExactComparison::movingStrips(int deltaY) const {
    const int height = current_.height();
    const int from = height / 4, to = height - height / 4;
    std::vector<bool> moving(current_.strips());
    for (int strip = 0; strip < current_.strips(); ++strip) {
        const std::uint32_t* now = current_.keys(strip);
        const std::uint32_t* before = previous_.keys(strip);
        const std::uint32_t* unchanged = unchanged_.data() + std::size_t(strip) * height;
        int followed = 0, stayed = 0;
        for (int y = 0; y < height; ++y) {
            const int origin = y + deltaY;
            const bool hasMoved = now[y] != 0 && origin >= 0 && origin < height &&
                                  before[origin] == now[y] && !unchanged[y];
            followed += hasMoved;
            stayed += y >= from && y < to && unchanged[y] != 0;
        }
        moving[strip] = followed > stayed;
    }
    return moving;
}

ExactComparison::RowTally ExactComparison::tally(int y, int deltaY,
                                                 const std::vector<bool>& strips) const {
    const int height = current_.height();
    RowTally row;
    for (int strip = 0; strip < current_.strips(); ++strip) {
        if (!strips[strip]) continue;
        const std::uint32_t now = current_.keys(strip)[y];
        const bool isInside = y + deltaY < height - edges_[strip].bottom;
        const std::uint32_t origin = isInside ? previous_.keys(strip)[y + deltaY] : 0;
        if (isInside && now == origin) {
            row.followed += now != 0;
        } else if (unchanged_[std::size_t(strip) * height + y]) {
            ++row.fixed;
        } else if (isInside) {
            ++row.foreign;
        }
    }
    return row;
}

// Rows at the top and the bottom that are the same in both frames in nearly all strips: a clock or
// a caret changes a few.
ExactComparison::StripEdges ExactComparison::commonEdges(const std::vector<bool>& strips) const {
    std::vector<int> tops, bottoms;
    for (int strip = 0; strip < current_.strips(); ++strip) {
        if (!strips[strip]) continue;
        tops.push_back(edges_[strip].top);
        bottoms.push_back(edges_[strip].bottom);
    }
    if (tops.empty()) return {};
    std::ranges::sort(tops);
    std::ranges::sort(bottoms);
    const std::size_t index = tops.size() / toleratedDivisor;
    const int tallest = current_.height() / tallestBandDivisor;
    return {std::min(tops[index], tallest), std::min(bottoms[index], tallest)};
}

ExactBands ExactComparison::fixedBands(int deltaY) const {
    const int height = current_.height();
    const auto strips = movingStrips(deltaY);
    const int count = std::max(int(std::ranges::count(strips, true)), 1);
    const StripEdges edges = commonEdges(strips);
    BandEvidence top, bottom;
    for (int y = 0; y < height / bandDivisor; ++y)
        top.add(tally(y, deltaY, strips), y + 1, y < edges.top, count);
    for (int rows = 1; rows <= height / bandDivisor; ++rows)
        bottom.add(tally(height - rows, deltaY, strips), rows, rows <= edges.bottom, count);
    return {{top.height(edges.top), bottom.height(edges.bottom)}, edges.bottom};
}

int ExactComparison::firstSoundRow(int deltaY, int begin, int end) const {
    const auto strips = movingStrips(deltaY);
    const int count = std::max(int(std::ranges::count(strips, true)), 1);
    for (int y = end - 1; y >= begin; --y) {
        const RowTally row = tally(y, deltaY, strips);
        if (row.isForeign(count) || row.isFixed(count)) return y + 1;
    }
    return begin;
}

}  // namespace kestrio
