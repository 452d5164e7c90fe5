#pragma once

#include "platform/TextRecognizer.h"

#include <QRect>
#include <vector>

namespace kestrio {

/// How a picture is searched for text.
struct SearchPlan {
    double scale = 1;          ///< of the copy that is searched
    std::vector<QRect> tiles;  ///< pixels of the picture; they overlap by more than a line
};

/// The copy is as small as small type allows, and cut where it takes too much memory at once.
SearchPlan searchPlan(QRect region);

/// Whether an inner edge of a tile runs through the area, which the next tile has whole.
bool isCutByTile(QRect area, QRect tile, QRect region);

/// Areas that are one line: those that overlap, as at the edges of tiles, and neighbours in a row
/// that nearly touch. Columns of a table stay apart. The order is any.
std::vector<QRect> joinedAreas(std::vector<QRect> areas);

/// From the top to the bottom, and in a row from the left; lines are in a row where their middles
/// lie within each other.
void sortForReading(std::vector<RecognizedLine>& lines);

}  // namespace kestrio
