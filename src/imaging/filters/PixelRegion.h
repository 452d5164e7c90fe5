#pragma once

#include <QRect>
#include <span>
#include <vector>

namespace kestrio {

/// A set of pixels: the union of rectangles. However many of them overlap, each pixel is there
/// once.
class PixelRegion {
  public:
    /// Pixels from `left` up to but without `end`.
    struct Run {
        int left, end;
        bool operator==(const Run&) const = default;
    };

    /// Rows from `top` up to but without `end` that hold the same runs, ascending and apart.
    struct Band {
        int top, end;
        std::vector<Run> runs;
    };

    /// How a region is cut for work that reads around what it writes; all in pixels.
    struct Tiling {
        int width;          ///< of the strips of columns that are looked at one by one
        int greatestWidth;  ///< of tiles joined from several strips
        int height;         ///< of a tile at most
        int gap;  ///< rows between two parts of a strip that are not worth a tile of their own
    };

    PixelRegion() = default;

    /// What the rectangles cover of `limit`; invalid rectangles cover nothing.
    PixelRegion(const std::vector<QRect>& rects, const QRect& limit);

    /// What of it lies in `limit`.
    PixelRegion clipped(const QRect& limit) const;

    bool isEmpty() const { return bands_.empty(); }
    const std::vector<Band>& bands() const { return bands_; }

    /// The runs of row `y`.
    std::span<const Run> runs(int y) const;

    /// Every run of every band as a rectangle; they do not overlap.
    std::vector<QRect> rects() const;

    /// Rectangles that hold the whole region, do not overlap and hold little else, row by row. They
    /// are cut from strips of columns, so that neighbours in a strip share the rows around them.
    std::vector<QRect> tiles(const Tiling& tiling) const;

  private:
    bool isWithin(const QRect& limit) const;
    void append(Band band);
    void addTiles(int strip, const Tiling& tiling, std::vector<QRect>& tiles) const;

    std::vector<Band> bands_;
};

}  // namespace kestrio
