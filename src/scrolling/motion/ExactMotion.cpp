#include "scrolling/motion/ExactMotion.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <numeric>

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
// Motions that are looked at more closely, of those with the best evidence.
constexpr std::size_t promisingMotions = 6;
// Of five strips, one may differ in a row at which old and new rows meet.
constexpr int toleratedDivisor = 5;
// The part of what moved that must come back bit for bit under some motion.
constexpr int exactRowsDivisor = 5;
// The share of the evidence that makes a motion certain.
constexpr double certainShare = 0.8;
constexpr int minimumBand = 32;

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

}  // namespace

bool MotionEvidence::showsMotion() const {
    return matched >= fewestCells && matched >= contradicted;
}

ExactComparison::ExactComparison(const RowSignature& previous, const RowSignature& current)
    : previous_(previous), current_(current), frames_(compareFrames(previous, current)) {
    const std::uint32_t* before = previous.hashes(0);
    const std::uint32_t* now = current.hashes(0);
    const std::uint32_t* keys = current.keys(0);
    for (std::size_t i = 0; i < frames_.unchanged.size(); ++i) {
        changedCells_ += before[i] != now[i];
        movableCells_ += before[i] != now[i] && keys[i] != 0;
    }
}

MotionEvidence ExactComparison::evidence(int deltaY, FixedBands bands) const {
    const int height = current_.height();
    const int distance = std::abs(deltaY);
    MotionEvidence evidence;
    for (int strip = 0; strip < current_.strips(); ++strip) {
        const StripEdges edges{std::max(frames_.edges[strip].top, bands.top),
                               std::max(frames_.edges[strip].bottom, bands.bottom)};
        // The key of the first row depends on the band above it.
        const int from = edges.top + 1;
        const int rows = height - from - edges.bottom - distance;
        if (rows <= 0) continue;
        const std::uint32_t* unchanged = frames_.unchangedCells(strip) + from;
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
        const std::uint32_t* unchanged = frames_.unchangedCells(strip);
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
    const int mostMatched = std::ranges::max(found, {}, &MotionEvidence::matched).matched;
    motion.hasExactRows = mostMatched * exactRowsDivisor >= movableCells_;
    const std::size_t best = bestIndex(found, deltas);
    motion.deltaY = deltas[best];
    motion.evidence = evidenceBetweenBands(motion.deltaY);
    if (!motion.evidence.showsMotion()) return motion;
    const auto strips = movingStrips(motion.deltaY);
    if (std::ranges::find(strips, true) == strips.end()) return motion;
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (found[i].followed * rivalDivisor >= found[best].followed &&
            found[i].contradicted <= found[best].contradicted + rivalContradictions) {
            motion.alternatives.push_back(deltas[i]);
        }
    }
    if (motion.evidence.share() < certainShare) return motion;
    weighAlternatives(motion);
    return motion;
}

// Bars contradict every motion, and small overlaps the least of all: the best of those that look
// promising either way is the one with the best evidence between its bars.
std::size_t ExactComparison::bestIndex(const std::vector<MotionEvidence>& found,
                                       const std::vector<int>& deltas) const {
    std::vector<std::size_t> order(found.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    const std::size_t count = std::min(found.size(), promisingMotions);
    const auto promising = order.begin() + std::ptrdiff_t(count);
    std::size_t best = 0;
    int bestScore = std::numeric_limits<int>::min();
    const auto considerFirst = [&](auto rank) {
        std::ranges::partial_sort(order, promising, std::ranges::greater(),
                                  [&](std::size_t i) { return rank(found[i]); });
        for (auto at = order.begin(); at != promising; ++at) {
            const int score = evidenceBetweenBands(deltas[*at]).score();
            if (score <= bestScore) continue;
            bestScore = score;
            best = *at;
        }
    };
    considerFirst([](const MotionEvidence& each) { return each.score(); });
    considerFirst([](const MotionEvidence& each) { return each.followed; });
    return best;
}

MotionEvidence ExactComparison::evidenceBetweenBands(int deltaY) const {
    if (deltaY < 0) return evidence(deltaY);
    return evidence(deltaY, fixedBands(deltaY).bands);
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
        const std::uint32_t* unchanged = frames_.unchangedCells(strip);
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
        const std::uint32_t* unchanged = frames_.unchangedCells(strip);
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

ExactBands ExactComparison::fixedBands(int deltaY) const {
    return findBands(frames_, deltaY, movingStrips(deltaY));
}

int ExactComparison::firstSoundRow(int deltaY, int begin, int end) const {
    const auto strips = movingStrips(deltaY);
    const int count = int(std::ranges::count(strips, true));
    for (int y = end - 1; y >= begin; --y) {
        int unsound = 0;
        for (int strip = 0; strip < current_.strips(); ++strip)
            unsound +=
                strips[strip] && current_.hashes(strip)[y] != previous_.hashes(strip)[y + deltaY];
        if (unsound > 0 && unsound * toleratedDivisor >= count) return y + 1;
    }
    return begin;
}

}  // namespace kestrio
