#include "support/AnnotationSamples.h"

#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/model/Geometry.h"
#include "support/Gestures.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

AnyAnnotation box(const QRectF& bounds) {
    return RectangleAnnotation{QUuid::createUuid(), bounds, {}, 2};
}

std::vector<QUuid> idsOf(const std::vector<AnyAnnotation>& list) {
    std::vector<QUuid> ids;
    for (const AnyAnnotation& annotation : list)
        ids.push_back(annotation.id());
    return ids;
}

std::vector<qint64> numbersOf(const AnnotationViewModel& model) {
    std::vector<qint64> numbers;
    for (const AnyAnnotation& annotation : model.annotations())
        numbers.push_back(annotation.as<NumberAnnotation>()->number);
    return numbers;
}

/// Three badges, drawn.
void drawBadges(AnnotationViewModel& model) {
    model.set_currentTool(AnnotationTool::number);
    for (int i = 0; i < 3; ++i) {
        drawLine(model, {i * 50.0, 0}, {i * 50.0, 0});
    }
}

TEST(AnnotationEditing, AChangeOfColourIsToldButNotRecorded) {
    AnnotationViewModel model(oneOfEach());
    int changes = 0;
    QObject::connect(&model, &AnnotationViewModel::annotationsChanged, [&] { ++changes; });
    model.selectAnnotation(model.annotations().front());
    model.setColor({1, 1, 0, 1});
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(model.annotations().front().color(), (CodableColor{1, 1, 0, 1}));
    EXPECT_EQ(model.selectedAnnotation()->color(), (CodableColor{1, 1, 0, 1}));
    EXPECT_FALSE(model.historyService().canUndo());
    model.selectAll();
    model.setStrokeSize(StrokeSize::extraLarge);
    for (const AnyAnnotation& annotation : model.annotations())
        EXPECT_EQ(annotation.strokeWidth(), 8);
    // All but the badge, the blur and the emoji, whose width does not count.
    const std::size_t steps = model.annotations().size() - 3;
    EXPECT_EQ(model.historyService().undoStack().size(), steps);
    model.setFillMode(FillMode::both);
    EXPECT_EQ(model.historyService().undoStack().size(), steps) << "it has no fill";
}

TEST(AnnotationEditing, AnUndoneDeleteComesBackOnTop) {
    const auto start = oneOfEach();
    AnnotationViewModel model(start);
    model.selectAnnotation(start.front());
    model.deleteSelected();
    EXPECT_FALSE(model.selectedAnnotation());
    EXPECT_TRUE(model.selectedAnnotations().empty());
    model.undo();
    EXPECT_EQ(model.annotations().back(), start.front());
    model.sendToBack(start.front().id());
    EXPECT_EQ(model.annotations(), start);
    model.sendToBack(start.front().id());
    EXPECT_EQ(model.historyService().undoStack().size(), 1u) << "it was at the back already";
    model.bringToFront(start[2].id());
    model.deleteAnnotation(start[2].id());
    model.historyService().popForUndo();
    const auto shorter = model.annotations();
    model.undo();
    EXPECT_EQ(model.annotations(), shorter) << "the moved record is gone";
    model.selectAll();
    const std::size_t steps = model.historyService().undoStack().size();
    const std::size_t count = model.annotations().size();
    model.deleteSelected();
    EXPECT_EQ(model.historyService().undoStack().size(), steps + count);
    EXPECT_TRUE(model.annotations().empty());
}

TEST(AnnotationEditing, AnotherListLeavesNothingOfTheOldOneBehind) {
    AnnotationViewModel model(oneOfEach());
    model.selectAll();
    model.set_hoveredAnnotation(model.annotations().front());
    startDrag(model);
    model.moveGesture({{5, 5}});
    EXPECT_TRUE(model.annotationAt({30, 40})) << "the badge";
    bool isTold = false;
    QObject::connect(&model, &AnnotationViewModel::annotationsChanged, [&] { isTold = true; });
    const AnyAnnotation badge = NumberAnnotation{QUuid::createUuid(), {500, 500}, 7, {}, 30, 0};
    model.setAnnotations({badge});
    EXPECT_TRUE(isTold);
    EXPECT_EQ(model.annotations(), std::vector{badge});
    EXPECT_EQ(model.nextNumber(), 8);
    EXPECT_FALSE(model.selectedAnnotation() || model.hoveredAnnotation());
    EXPECT_TRUE(model.selectedAnnotations().empty());
    EXPECT_FALSE(model.gesture());
    EXPECT_FALSE(model.historyService().canUndo());
    EXPECT_EQ(model.annotationAt({500, 500}), badge);
    EXPECT_FALSE(model.annotationAt({30, 40}));
}

TEST(AnnotationEditing, SelectionByRectangleAndByCycling) {
    const AnyAnnotation line = BrushAnnotation{QUuid::createUuid(), {{10, 50}, {60, 50}}, {}, 2};
    const std::vector<AnyAnnotation> start = {box({0, 0, 40, 40}), box({10, 10, 40, 40}),
                                              box({20, 20, 40, 40}), line};
    AnnotationViewModel model(start);
    for (const std::size_t expected : {2, 1, 0, 2}) {
        EXPECT_TRUE(model.cycleSelection({30, 30}));
        EXPECT_EQ(model.selectedAnnotation(), start[expected]);
        EXPECT_EQ(model.selectedAnnotations(), std::set{start[expected].id()});
    }
    EXPECT_FALSE(model.cycleSelection({500, 500}));
    EXPECT_FALSE(model.selectedAnnotation());

    const auto countIn = [&model](QPointF from, QPointF to) {
        model.selectAnnotation(std::nullopt);
        sweep(model, from, to);
        return model.selectedAnnotations().size();
    };
    EXPECT_EQ(countIn({5, 200}, {0, 0}), 0u) << "5 points wide are a slip";
    EXPECT_EQ(countIn({8, 8}, {1, 1}), 1u);
    EXPECT_EQ(countIn({70, 70}, {55, 45}), 2u);
    EXPECT_EQ(model.selectedAnnotation(), line) << "the topmost is the primary";
    EXPECT_TRUE(identical(*model.combinedBounds(), QRectF(10, 20, 50, 40)));
    model.removeFromSelection(line.id());
    EXPECT_EQ(model.selectedAnnotation(), start[2]);
    model.toggleSelection(start[0]);
    EXPECT_EQ(model.selectedAnnotations().size(), 2u);
    EXPECT_EQ(model.selectedAnnotation(), start[0]);
}

TEST(AnnotationEditing, AMoveIsOneStepAndNoneWhenItReturns) {
    for (const AnyAnnotation& annotation : oneOfEach()) {
        AnnotationViewModel model({annotation});
        model.selectAnnotation(annotation);
        const auto drag = [&model](std::vector<QPointF> offsets) {
            startDrag(model);
            for (const QPointF& offset : offsets)
                model.moveGesture({offset});
            model.finishGesture();
        };
        drag({{0.1, 0.7}, {13.3, -200}, {0, 0}});
        EXPECT_FALSE(model.historyService().canUndo());
        EXPECT_EQ(model.annotations().front(), annotation);
        drag({{0.1, 0.7}, {16, -32}});
        EXPECT_EQ(model.historyService().undoStack().size(), 1u);
        const QPointF moved = model.annotations().front().bounds().topLeft();
        EXPECT_LT(distance(moved, annotation.bounds().topLeft() + QPointF(16, -32)), 1e-9);
        model.undo();
        EXPECT_EQ(model.selectedAnnotation(), annotation);
    }
}

TEST(AnnotationEditing, AMoveSnapsToItsNeighbours) {
    const AnyAnnotation fixed = box({100, 100, 50, 50});
    const AnyAnnotation twin = box({100, 300, 50, 50});
    const AnyAnnotation blur = BlurAnnotation{QUuid::createUuid(), {0, 0, 30, 30}};
    for (const AnyAnnotation& moved : {box({0, 0, 30, 30}), blur}) {
        AnnotationViewModel model({fixed, twin, moved});
        model.selectAnnotation(moved);
        startDrag(model);
        model.moveGesture({{97, 400}});
        // The left edges of both neighbours are one line.
        ASSERT_FALSE(model.activeAlignmentGuides().empty());
        EXPECT_EQ(model.activeAlignmentGuides().front().position, 100);
        const auto positions = model.activeAlignmentGuides();
        EXPECT_EQ(AlignmentGuideService::unique(positions), positions);
        const QRectF snapped =
            AlignmentGuideService::snapped(model.selectedAnnotation()->bounds(), positions);
        model.finishGesture();
        EXPECT_TRUE(model.activeAlignmentGuides().empty());
        EXPECT_TRUE(identical(model.selectedAnnotation()->bounds(), snapped));
        EXPECT_EQ(model.historyService().undoStack().size(), 1u);
    }
}

TEST(AnnotationEditing, AlignsAndDistributes) {
    const QRectF rects[] = {{10, 0, 20, 10}, {100, 50, 40, 30}, {40, 90, 60, 10}};
    const std::tuple<AlignmentType, std::vector<QPointF>> rows[] = {
        {AlignmentType::left, {{10, 0}, {10, 50}, {10, 90}}},
        {AlignmentType::right, {{120, 0}, {100, 50}, {80, 90}}},
        {AlignmentType::centerH, {{60, 0}, {50, 50}, {40, 90}}},
        {AlignmentType::top, {{10, 0}, {100, 0}, {40, 0}}},
        {AlignmentType::bottom, {{10, 90}, {100, 70}, {40, 90}}},
        {AlignmentType::centerV, {{10, 50}, {100, 40}, {40, 50}}},
    };
    const std::vector<AnyAnnotation> start = {box(rects[0]), box(rects[1]), box(rects[2])};
    for (const auto& [type, origins] : rows) {
        AnnotationViewModel model(start);
        model.selectAnnotation(start[0]);
        model.align(type);
        EXPECT_FALSE(model.historyService().canUndo()) << "one alone has nothing to align with";
        model.selectAll();
        model.align(type);
        std::size_t movedCount = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            const QRectF bounds = model.annotations()[i].bounds();
            EXPECT_TRUE(identical(bounds, QRectF(origins[i], rects[i].size())))
                << rawString(type).toStdString();
            movedCount += identical(bounds, rects[i]) ? 0 : 1;
        }
        EXPECT_EQ(model.historyService().undoStack().size(), movedCount);
        model.align(type);
        EXPECT_EQ(model.historyService().undoStack().size(), movedCount);
    }
    AnnotationViewModel model(start);
    model.addToSelection(start[0]);
    model.addToSelection(start[1]);
    model.distribute(DistributionAxis::horizontal);
    EXPECT_FALSE(model.historyService().canUndo());
    model.addToSelection(start[2]);
    model.distribute(DistributionAxis::horizontal);
    EXPECT_FALSE(model.historyService().canUndo()) << "the middles 20, 70, 120 are even already";
    model.distribute(DistributionAxis::vertical);
    EXPECT_TRUE(identical(model.annotations()[1].bounds(), QRectF(100, 35, 40, 30)));
    EXPECT_EQ(model.historyService().undoStack().size(), 1u);
}

TEST(BadgeNumbers, CountOnAndAnew) {
    AnnotationViewModel model;
    drawBadges(model);
    EXPECT_EQ(numbersOf(model), (std::vector<qint64>{1, 2, 3}));
    const auto ids = idsOf(model.annotations());
    model.deleteAnnotation(ids[1]);
    EXPECT_EQ(numbersOf(model), (std::vector<qint64>{1, 3}));
    EXPECT_EQ(model.nextNumber(), 4);
    model.renumber(std::nullopt, 1);
    EXPECT_EQ(numbersOf(model), (std::vector<qint64>{1, 2}));
    EXPECT_EQ(model.nextNumber(), 3);
    EXPECT_EQ(model.historyService().undoStack().size(), 5u);
    model.renumber(ids[2], 9);
    EXPECT_EQ(numbersOf(model), (std::vector<qint64>{1, 9}));
    model.renumber(QUuid::createUuid(), 5);
    EXPECT_EQ(numbersOf(model), (std::vector<qint64>{5, 6}));
    model.deleteAnnotation(ids[2]);
    EXPECT_EQ(model.nextNumber(), 6);
    model.undo();
    EXPECT_EQ(model.nextNumber(), 7) << "a restored badge counts again";
}

TEST(BadgeNumbers, AreEditedAsText) {
    const std::tuple<const char*, std::optional<qint64>> rows[] = {
        {"+7", 7},   {"12", 12},
        {"0", {}},   {"-3", {}},
        {"3.5", {}}, {"", {}},
        {"+", {}},   {" 4", {}},
        {"1e3", {}}, {"+-5", {}},
        {"007", 7},  {"9223372036854775807", INT64_MAX},
        {"٣", {}},   {"99999999999999999999", {}},
    };
    for (const auto& [text, expected] : rows) {
        AnnotationViewModel model;
        drawBadges(model);
        const AnyAnnotation badge = model.annotations()[1];
        NumberEditing& editing = model.numberEditing();
        editing.start(badge);
        EXPECT_EQ(model.currentTool(), AnnotationTool::select);
        EXPECT_EQ(editing.numberEditingState().inputValue, QStringLiteral("2"));
        editing.setInput(QString::fromUtf8(text));
        editing.commit();
        EXPECT_EQ(numbersOf(model)[1], expected.value_or(2)) << text;
        EXPECT_EQ(editing.isEditing(), !expected) << text;
        if (!expected) {
            EXPECT_EQ(editing.numberEditingState().errorMessage,
                      QStringLiteral("Please enter a positive integer"));
            model.deleteAnnotation(badge.id());
            editing.commit();
        }
        EXPECT_EQ(editing.numberEditingState(), NumberEditingState());
    }
}

}  // namespace
}  // namespace kestrio
