#include "scrolling/motion/BriefPairs.h"

#include <algorithm>
#include <cstdint>

namespace kestrio {

namespace {

constexpr int reach = 12;

// A linear congruential sequence of which the upper half of each state is used.
class PairSequence {
  public:
    int nextOffset() {
        state_ = state_ * 0x5851F42D4C957F2Du + 0x14057B7EF767814Fu;
        return static_cast<int>(static_cast<std::uint32_t>(state_ >> 32) % (2 * reach + 1)) - reach;
    }

  private:
    std::uint64_t state_ = 0x9E3779B97F4A7C15u;
};

std::array<BriefPair, briefPairCount> makePairs() {
    std::array<BriefPair, briefPairCount> pairs{};
    PairSequence sequence;
    for (BriefPair& pair : pairs) {
        pair.ax = sequence.nextOffset();
        pair.ay = sequence.nextOffset();
        pair.bx = sequence.nextOffset();
        pair.by = sequence.nextOffset();
        const auto coincide = [&pair] { return pair.ax == pair.bx && pair.ay == pair.by; };
        if (coincide()) pair.bx = std::min(pair.bx + 1, reach);
        if (coincide()) pair.by = std::max(pair.by - 1, -reach);
    }
    return pairs;
}

}  // namespace

const std::array<BriefPair, briefPairCount>& briefPairs() {
    static const std::array<BriefPair, briefPairCount> pairs = makePairs();
    return pairs;
}

}  // namespace kestrio
