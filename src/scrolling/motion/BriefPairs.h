#pragma once

#include <array>

namespace kestrio {

/// Two points of a descriptor's patch, in pixels from its centre, whose brightness is compared.
struct BriefPair {
    int ax, ay, bx, by;

    bool operator==(const BriefPair&) const = default;
};

inline constexpr int briefPairCount = 256;

/// The pairs of all descriptors, from a fixed pseudo-random sequence. (Calonder et al., BRIEF:
/// Binary Robust Independent Elementary Features, 2010.)
const std::array<BriefPair, briefPairCount>& briefPairs();

}  // namespace kestrio
