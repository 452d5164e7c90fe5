#include "capture/region/OverlayLayout.h"
#include "capture/region/RegionSelection.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

using Release = RegionSelection::Release;

// The display stands right of another one, so that both coordinate systems differ.
const QRectF display(1000, 0, 800, 600);

WindowInfo window(quint64 id, const QRectF& bounds) {
    return {id, QStringLiteral("Program"), QStringLiteral("Title"), bounds, true};
}

RegionSelection withWindows() {
    return {display, {window(1, {1100, 100, 200, 150}), window(2, {900, 50, 500, 400})}};
}

Release drag(RegionSelection& selection, QPointF from, QPointF to) {
    selection.move(from);
    selection.press(from);
    selection.move((from + to) / 2);
    selection.move(to);
    return selection.release(to);
}

TEST(RegionSelection, DragsAndClicksEndAsTheyShould) {
    struct Case {
        QPointF from, to;
        Release release;
        QRectF selection;
    };
    const Case cases[] = {
        {{500, 500}, {600, 560}, Release::chosen, {500, 500, 100, 60}},
        {{600, 560}, {500, 500}, Release::chosen, {500, 500, 100, 60}},
        // A hand that trembles still clicks, and takes the window in front.
        {{150, 150}, {153, 152}, Release::chosen, {100, 100, 200, 150}},
        // Only what of a window lies on this display.
        {{20, 60}, {20, 60}, Release::chosen, {0, 50, 400, 400}},
        // A drag that is too small takes no window either.
        {{150, 150}, {159, 159}, Release::nothing, {}},
        {{700, 590}, {700, 590}, Release::nothing, {}},
        // The pointer may leave the display while it is pressed.
        {{700, 500}, {950, 700}, Release::chosen, {700, 500, 100, 100}},
    };
    for (const Case& each : cases) {
        RegionSelection selection = withWindows();
        EXPECT_EQ(drag(selection, each.from, each.to), each.release) << each.from.x();
        EXPECT_EQ(selection.selection(), each.selection) << each.from.x();
    }
}

TEST(RegionSelection, TheLastPixelReachesTheEdge) {
    for (const double pixel : {1.0, 0.5}) {
        const QPointF last(800 - pixel, 600 - pixel);
        RegionSelection selection(display, {}, pixel);
        drag(selection, {0, 0}, last);
        EXPECT_EQ(selection.selection(), QRectF(0, 0, 800, 600)) << "from corner to corner";
        RegionSelection back(display, {}, pixel);
        drag(back, last, {700, 500});
        EXPECT_EQ(back.selection(), QRectF(700, 500, 100, 100));
        drag(back, {0, 0}, {100, 100});
        back.beginAdjusting();
        drag(back, {100, 100}, last);
        EXPECT_EQ(back.selection(), QRectF(0, 0, 800, 600)) << "by a handle";
        RegionSelection within(display, {}, pixel);
        drag(within, {0, 0}, last - QPointF(pixel, pixel));
        EXPECT_EQ(within.selection().bottomRight(), last - QPointF(pixel, pixel));
    }
}

TEST(RegionSelection, TheWholeDisplayCanBeTakenAtAnyTime) {
    RegionSelection selection = withWindows();
    selection.press({30, 30});
    selection.move({90, 90});
    selection.selectAll();
    EXPECT_EQ(selection.selection(), QRectF(0, 0, 800, 600));
    EXPECT_EQ(selection.release({95, 95}), Release::nothing);
    selection.beginAdjusting();
    selection.moveBy({10, 10});
    EXPECT_EQ(selection.selection(), QRectF(0, 0, 800, 600));
}

TEST(RegionSelection, TheWindowUnderThePointerIsOffered) {
    RegionSelection selection = withWindows();
    selection.move({150, 150});
    EXPECT_TRUE(selection.isSnapping());
    EXPECT_EQ(selection.cutOut(), QRectF(100, 100, 200, 150));
    selection.move({790, 590});
    EXPECT_TRUE(selection.cutOut().isEmpty());
}

RegionSelection adjusting() {
    RegionSelection selection(display, {});
    drag(selection, {200, 200}, {400, 300});
    selection.beginAdjusting();
    return selection;
}

TEST(RegionSelection, HandlesReshapeAndFlip) {
    struct Case {
        QPointF from;
        std::vector<QPointF> way;
        QRectF expected;
    };
    const Case cases[] = {
        {{400, 300}, {{450, 350}}, {200, 200, 250, 150}},
        {{300, 200}, {{999, 180}}, {200, 180, 200, 120}},
        // Through the far edge, which stays, and back.
        {{400, 250}, {{150, 250}, {100, 250}}, {100, 200, 100, 100}},
        {{400, 250}, {{100, 250}, {350, 250}}, {200, 200, 150, 100}},
        {{200, 200}, {{450, 350}, {500, 400}}, {400, 300, 100, 100}},
        // Not below ten points: the last size that was large enough stays.
        {{400, 250}, {{300, 250}, {205, 250}}, {200, 200, 100, 100}},
        {{400, 300}, {{2000, 2000}}, {200, 200, 600, 400}},
    };
    for (const Case& each : cases) {
        RegionSelection selection = adjusting();
        selection.press(each.from);
        for (const QPointF& by : each.way)
            selection.move(by);
        selection.release(each.way.back());
        EXPECT_EQ(selection.selection(), each.expected) << each.way.back().x();
    }
}

TEST(RegionSelection, MovingStopsAtTheEdges) {
    RegionSelection selection = adjusting();
    selection.press({300, 250});
    EXPECT_EQ(selection.cursor(), Qt::ClosedHandCursor);
    selection.move({5000, -5000});
    selection.release({5000, -5000});
    EXPECT_EQ(selection.selection(), QRectF(600, 0, 200, 100));
    selection.moveBy({-1, 1});
    EXPECT_EQ(selection.selection(), QRectF(599, 1, 200, 100));
    selection.growBy({500, -500});
    EXPECT_EQ(selection.selection(), QRectF(599, 1, 200, 100));
    selection.growBy({-20, 0});
    EXPECT_EQ(selection.selection(), QRectF(599, 1, 180, 100));
}

TEST(RegionSelection, APressBesideStartsOver) {
    RegionSelection selection = adjusting();
    EXPECT_EQ(selection.cursor(), Qt::CrossCursor);
    EXPECT_EQ(drag(selection, {600, 400}, {700, 500}), Release::chosen);
    EXPECT_EQ(selection.phase(), SelectionPhase::selecting);
    EXPECT_EQ(selection.selection(), QRectF(600, 400, 100, 100));
}

TEST(OverlayLayout, ThingsFindRoom) {
    const QSizeF view(800, 600);
    const QSizeF label(80, 20);
    const QSizeF toolbar(300, 44);
    EXPECT_EQ(sizeLabelPlace({200, 200, 100, 100}, label, view, {}).top(), 308);
    EXPECT_EQ(sizeLabelPlace({200, 400, 100, 190}, label, view, {}).bottom(), 392);
    EXPECT_EQ(sizeLabelPlace({0, 200, 20, 20}, label, view, {}).left(), 4);
    EXPECT_EQ(toolbarPlace({200, 200, 100, 100}, toolbar, view), QRectF(100, 310, 300, 44));
    EXPECT_EQ(toolbarPlace({700, 500, 100, 99}, toolbar, view), QRectF(496, 446, 300, 44));
    for (const QRectF& selection : {QRectF(0, 0, 800, 600), QRectF(100, 500, 300, 100),
                                    QRectF(100, 100, 300, 100), QRectF(0, 0, 800, 560)}) {
        const QRectF bar = toolbarPlace(selection, toolbar, view);
        const QRectF text = sizeLabelPlace(selection, label, view, bar);
        EXPECT_TRUE(QRectF(QPointF(), view).contains(bar));
        EXPECT_TRUE(QRectF(QPointF(), view).contains(text));
        EXPECT_FALSE(text.intersects(bar));
    }
    for (const QPointF& pointer :
         {QPointF(0, 0), QPointF(799, 0), QPointF(799, 599), QPointF(400, 300)}) {
        const QRectF place = magnifierPlace(pointer, view);
        EXPECT_TRUE(QRectF(QPointF(), view).contains(place));
        EXPECT_FALSE(place.contains(pointer));
    }
}

}  // namespace
}  // namespace kestrio
