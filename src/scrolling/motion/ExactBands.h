#pragma once

#include <vector>

#include "scrolling/motion/FixedBands.h"
#include "scrolling/motion/RowSignature.h"

namespace kestrio {

/// What stays where it is, row by row, while the rest of a frame moves up.
struct ExactBands {
    FixedBands bands;     ///< bars from side to side, also translucent ones, and new ones
    int bottomLimit = 0;  ///< what stays at the bottom is not taller: the rows above have changed
    int widgets = 0;      ///< rows from the bottom up to buttons that float over the content
};

/// Rows of a strip that are the same in both frames, at its top and its bottom.
struct StripEdges {
    int top = 0;
    int bottom = 0;
};

/// Two frames, and what is known of them strip by strip.
struct ComparedFrames {
    const RowSignature& previous;
    const RowSignature& current;
    std::vector<StripEdges> edges;         ///< of each strip
    std::vector<std::uint32_t> unchanged;  ///< as the keys; not 0 where a cell with a key stayed

    const std::uint32_t* unchangedCells(int strip) const {
        return unchanged.data() + std::size_t(strip) * current.height();
    }
};

ComparedFrames compareFrames(const RowSignature& previous, const RowSignature& current);

/// `movingStrips` are those whose content goes with the motion of `deltaY` pixels up.
ExactBands findBands(const ComparedFrames& frames, int deltaY,
                     const std::vector<bool>& movingStrips);

}  // namespace kestrio
