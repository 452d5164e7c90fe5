#include "imaging/filters/Mosaic.h"

#include "core/Parallel.h"
#include "core/Simd.h"
#include "imaging/Image.h"

namespace kestrio {

namespace {

// Farther out than any picture, where counting cells one by one would never arrive.
constexpr double farAway = 1e6;

// At 8 bits a channel this many rows fit a sum of 16 bits.
constexpr int mostNarrowRows = 257;

/// The cells along one axis that hold pixels of a stretch of `length` pixels.
class CellAxis {
  public:
    CellAxis(double cell, double center, int length) {
        if (std::abs(center) > farAway) center = std::remainder(center, cell);
        // Cell k holds the pixels from ceil(center + (k - 0.5) * cell - 0.5) on.
        const double before = std::floor((0.5 - center) / cell + 0.5);
        starts_.push_back(0);
        for (double k = before; starts_.back() < length; ++k) {
            const double start = std::ceil(center + (k + 0.5) * cell - 0.5);
            const int next = static_cast<int>(std::clamp<double>(start, 0, length));
            if (next > starts_.back()) starts_.push_back(next);
        }
    }

    int start(int cell) const { return starts_[cell]; }
    int end(int cell) const { return starts_[cell + 1]; }
    int cellOf(int pixel) const {
        const auto after = std::upper_bound(starts_.begin(), starts_.end(), pixel);
        return static_cast<int>(after - starts_.begin()) - 1;
    }

  private:
    std::vector<int> starts_;
};

KESTRIO_SIMD void addBytes(const std::uint8_t* bytes, std::uint16_t* __restrict sums, int count) {
    for (int i = 0; i < count; ++i)
        sums[i] = static_cast<std::uint16_t>(sums[i] + bytes[i]);
}

KESTRIO_SIMD void addSums(const std::uint16_t* narrow, std::uint32_t* __restrict sums, int count) {
    for (int i = 0; i < count; ++i)
        sums[i] += narrow[i];
}

/// Works off one row of cells after the other. Rows of cells share no pixels, so each is read
/// before it is written and they may run side by side.
class MosaicPainter {
  public:
    MosaicPainter(const MosaicGrid& grid, const PixelRegion& region, QImage& bitmap)
        : columns_(grid.cell, grid.center.x(), bitmap.width()),
          rows_(grid.cell, grid.center.y(), bitmap.height()),
          region_(region),
          bits_(bitmap.bits()),
          stride_(bitmap.bytesPerLine()),
          width_(bitmap.width()) {
        for (const PixelRegion::Band& band : region.bands()) {
            const int last = rows_.cellOf(band.end - 1);
            for (int row = rows_.cellOf(band.top); row <= last; ++row) {
                if (cellRows_.empty() || cellRows_.back() != row) cellRows_.push_back(row);
            }
        }
    }

    void paint() const {
        parallelBands(static_cast<int>(cellRows_.size()), 1, [&](int first, int last) {
            std::vector<std::uint32_t> means(width_);
            for (int i = first; i < last; ++i)
                paintRow(cellRows_[i], means);
        });
    }

  private:
    void paintRow(int cellRow, std::vector<std::uint32_t>& means) const {
        const int top = rows_.start(cellRow), end = rows_.end(cellRow);
        for (const PixelRegion::Run& run : touchedCells(top, end))
            average(run, top, end, means);
        for (int y = top; y < end; ++y) {
            auto* const pixels = reinterpret_cast<std::uint32_t*>(bits_ + y * stride_);
            for (const PixelRegion::Run& run : region_.runs(y)) {
                std::copy(means.begin() + run.left, means.begin() + run.end, pixels + run.left);
            }
        }
    }

    /// Runs of whole cells, in pixels.
    std::vector<PixelRegion::Run> touchedCells(int top, int end) const {
        std::vector<QRect> touched;
        for (int y = top; y < end; ++y) {
            const auto runs = region_.runs(y);
            if (y > top && runs.data() == region_.runs(y - 1).data()) continue;
            for (const PixelRegion::Run& run : runs) {
                const int left = columns_.start(columns_.cellOf(run.left));
                touched.emplace_back(left, 0, columns_.end(columns_.cellOf(run.end - 1)) - left, 1);
            }
        }
        const PixelRegion cells(touched, QRect(0, 0, width_, 1));
        return cells.isEmpty() ? std::vector<PixelRegion::Run>() : cells.bands().front().runs;
    }

    void average(const PixelRegion::Run& cells, int top, int end,
                 std::vector<std::uint32_t>& means) const {
        const std::vector<std::uint32_t> sums = columnSums(cells, top, end);
        for (int left = cells.left; left < cells.end;) {
            const int right = columns_.end(columns_.cellOf(left));
            std::array<std::uint64_t, 4> total{};
            for (int x = left; x < right; ++x) {
                for (int c = 0; c < 4; ++c)
                    total[c] += sums[(x - cells.left) * 4 + c];
            }
            const auto count = std::uint64_t(right - left) * (end - top);
            std::uint32_t mean = 0;
            for (int c = 0; c < 4; ++c)
                mean |= static_cast<std::uint32_t>((total[c] + count / 2) / count) << 8 * c;
            std::fill(means.begin() + left, means.begin() + right, mean);
            left = right;
        }
    }

    std::vector<std::uint32_t> columnSums(const PixelRegion::Run& columns, int top, int end) const {
        const int samples = (columns.end - columns.left) * 4;
        std::vector<std::uint32_t> sums(samples);
        std::vector<std::uint16_t> narrow(samples);
        for (int first = top; first < end; first += mostNarrowRows) {
            std::fill(narrow.begin(), narrow.end(), std::uint16_t(0));
            for (int y = first; y < std::min(first + mostNarrowRows, end); ++y)
                addBytes(bits_ + y * stride_ + columns.left * 4, narrow.data(), samples);
            addSums(narrow.data(), sums.data(), samples);
        }
        return sums;
    }

    const CellAxis columns_, rows_;
    const PixelRegion& region_;
    uchar* const bits_;
    const qsizetype stride_;
    const int width_;
    std::vector<int> cellRows_;
};

}  // namespace

void mosaic(QImage& bitmap, const MosaicGrid& grid, const PixelRegion& region) {
    const PixelRegion inside = region.clipped(bitmap.rect());
    const bool defined = std::isfinite(grid.center.x()) && std::isfinite(grid.center.y()) &&
                         std::isfinite(grid.cell);
    if (inside.isEmpty() || !defined || !(grid.cell > 1)) return;
    bitmap = inCanonicalFormat(std::move(bitmap));
    MosaicPainter(grid, inside, bitmap).paint();
}

}  // namespace kestrio
