#include "imaging/filters/Mosaic.h"

#include <gtest/gtest.h>

#include <map>

#include "imaging/filters/BlackCover.h"
#include "imaging/filters/FilterPictures.h"

namespace kestrio {
namespace {

/// The cell of the pixel whose centre this is, along one axis.
int cellOf(int pixel, double center, double cell) {
    return int(std::floor((pixel + 0.5 - center) / cell + 0.5));
}

QImage plainMosaic(const QImage& bitmap, const MosaicGrid& grid, const std::vector<QRect>& rects) {
    struct Cell {
        std::array<double, 4> sums{};
        int pixels = 0;
    };
    std::map<std::pair<int, int>, Cell> cells;
    const auto cellAt = [&](int x, int y) -> Cell& {
        return cells[{cellOf(x, grid.center.x(), grid.cell),
                      cellOf(y, grid.center.y(), grid.cell)}];
    };
    QImage result = bitmap;
    for (int y = 0; y < bitmap.height(); ++y) {
        for (int x = 0; x < bitmap.width(); ++x) {
            Cell& cell = cellAt(x, y);
            ++cell.pixels;
            for (int c = 0; c < 4; ++c)
                cell.sums[c] += bitmap.constScanLine(y)[x * 4 + c];
        }
    }
    for (int y = 0; y < bitmap.height(); ++y) {
        for (int x = 0; x < bitmap.width(); ++x) {
            const auto holds = [&](const QRect& rect) { return rect.contains(x, y); };
            if (std::none_of(rects.begin(), rects.end(), holds)) continue;
            const Cell& cell = cellAt(x, y);
            for (int c = 0; c < 4; ++c) {
                result.scanLine(y)[x * 4 + c] = uchar(std::floor(cell.sums[c] / cell.pixels + 0.5));
            }
        }
    }
    return result;
}

TEST(Mosaic, ShowsTheMeanOfEachCellWithinTheRegion) {
    const QSize size(151, 97);
    const std::vector<std::vector<QRect>> regions = {
        {QRect(QPoint(), size)},
        {QRect(70, 40, 1, 1)},
        {QRect(3, 5, 60, 20), QRect(40, 15, 70, 50), QRect(120, 60, 90, 90), QRect(0, 90, 9, 1)}};
    for (const QPointF center : {QPointF(75.5, 48.5), QPointF(0, 0), QPointF(-33.3, 412.7)}) {
        for (double cell : {1.3, 4.0, 4.7, 9.99, 32.0, 64.01, 300.0, 2e9}) {
            for (const NamedPicture& picture : filterPictures(size)) {
                for (const auto& rects : regions) {
                    QImage bitmap = picture.bitmap;
                    mosaic(bitmap, {cell, center}, PixelRegion(rects, bitmap.rect()));
                    ASSERT_EQ(bitmap, plainMosaic(picture.bitmap, {cell, center}, rects))
                        << picture.name << " cell " << cell << " at " << center.x();
                }
            }
        }
    }
}

// Long columns do not fit narrow sums.
TEST(Mosaic, WhiteStaysWhiteInTallCells) {
    QImage white(3, 1500, QImage::Format_RGB32);
    white.fill(Qt::white);
    QImage bitmap = white;
    mosaic(bitmap, {1200.5, {1.5, 750}}, PixelRegion({bitmap.rect()}, bitmap.rect()));
    EXPECT_EQ(bitmap, white);
}

TEST(Mosaic, ImpossibleGridsChangeNothing) {
    const QImage before = noise({20, 20});
    const double undefined = std::nan(""), endless = HUGE_VAL;
    for (const MosaicGrid& grid : {MosaicGrid{1, {10, 10}},
                                   {0, {10, 10}},
                                   {-5, {10, 10}},
                                   {undefined, {10, 10}},
                                   {endless, {10, 10}},
                                   {5, {undefined, 10}},
                                   {5, {10, endless}}}) {
        QImage bitmap = before;
        mosaic(bitmap, grid, PixelRegion({before.rect()}, before.rect()));
        EXPECT_EQ(bitmap, before);
    }
    QImage bitmap = before;
    mosaic(bitmap, {5, {1e300, -1e300}}, PixelRegion({before.rect()}, before.rect()));
    EXPECT_NE(bitmap, before);
}

TEST(Mosaic, ThreadsDoNotShowInTheResult) {
    EXPECT_TRUE(sameWithAnyThreads(noise({301, 403}), [&](QImage& bitmap) {
        mosaic(bitmap, {7.7, {150.5, 201.5}},
               PixelRegion({QRect(5, 5, 200, 300), QRect(100, 77, 190, 320)}, bitmap.rect()));
    }));
}

TEST(BlackCover, DarkensEachPixelOnceAndNoOther) {
    const std::vector<QRect> rects = {QRect(2, 3, 30, 20), QRect(20, 10, 30, 25)};
    const QImage before = noise({60, 40});
    for (double opacity : {0.001, 0.7, 0.85, 0.999, 1.0, 7.0}) {
        QImage bitmap = before;
        coverWithBlack(bitmap, opacity, PixelRegion(rects, before.rect()));
        const double keep = 1 - std::min(opacity, 1.0);
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 60 * 4; ++x) {
                const bool covered = rects[0].contains(x / 4, y) || rects[1].contains(x / 4, y);
                const double was = before.constScanLine(y)[x];
                const double black = x % 4 == 3 ? 255 * (1 - keep) : 0;
                const double expected = covered ? was * keep + black : was;
                ASSERT_NEAR(bitmap.constScanLine(y)[x], expected, 0.51) << opacity;
            }
        }
        EXPECT_TRUE(isPremultiplied(bitmap));
    }
}

}  // namespace
}  // namespace kestrio
