#include "annotation/history/AnnotationHistoryService.h"
#include "annotation/history/HistoryManager.h"
#include "support/ScriptedMemoryPressure.h"

#include <gtest/gtest.h>

#include <numeric>

namespace kestrio {
namespace {

/// A step that is known from others by its number.
AnnotationOperation step(int number) {
    return {ReorderOperation{{}, static_cast<std::size_t>(number), 0}};
}

int numberOf(const AnnotationOperation& operation) {
    return static_cast<int>(std::get<ReorderOperation>(operation.step).fromIndex);
}

std::vector<int> numbersOf(const std::vector<AnnotationOperation>& stack) {
    std::vector<int> numbers;
    for (const auto& operation : stack)
        numbers.push_back(numberOf(operation));
    return numbers;
}

std::vector<int> fromTo(int first, int last) {
    std::vector<int> numbers(static_cast<std::size_t>(last - first + 1));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

TEST(AnnotationHistory, KeepsTheNewestFifty) {
    AnnotationHistoryService history;
    EXPECT_FALSE(history.popForUndo() || history.popForRedo());
    for (int i = 1; i <= 51; ++i)
        history.record(step(i));
    EXPECT_EQ(numbersOf(history.undoStack()), fromTo(2, 51));
    for (int i = 51; i >= 2; --i)
        EXPECT_EQ(numberOf(*history.popForUndo()), i);
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.popForUndo());
    EXPECT_EQ(numberOf(*history.popForRedo()), 2);
    EXPECT_TRUE(history.canUndo() && history.canRedo());
    history.record(step(99));
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(numbersOf(history.undoStack()), (std::vector{2, 99}));
    history.popForUndo();
    history.clear();
    EXPECT_FALSE(history.canUndo() || history.canRedo());
    EXPECT_FALSE(history.popForUndo() || history.popForRedo());
}

TEST(AnnotationHistory, GivesWayUnderMemoryPressure) {
    for (const auto& [count, kept] : {std::pair{50, 25}, {11, 5}, {7, 5}, {4, 4}, {0, 0}}) {
        ScriptedMemoryPressure pressure;
        AnnotationHistoryService history(&pressure, 60);
        HistoryManager<int> states(60, &pressure);
        for (int i = 0; i <= count; ++i) {
            history.record(step(i));
            states.record(i);
        }
        states.record(count + 1);
        history.popForUndo();
        states.undo();
        pressure.announce(MemoryPressureLevel::warning);
        EXPECT_EQ(numbersOf(history.undoStack()), fromTo(count - kept, count - 1));
        EXPECT_EQ(states.undoStack(), fromTo(count - kept, count - 1));
        EXPECT_FALSE(history.canRedo() || states.canRedo());
        EXPECT_EQ(history.canUndo(), kept > 0);
    }
}

TEST(AnnotationHistory, IsCompactedWhenItMayGrowLong) {
    AnnotationHistoryService history(nullptr, 1000);
    const auto modify = [](double from) {
        return AnnotationOperation{
            ModifyOperation{NumberAnnotation{{}, {from, 0}}, NumberAnnotation{{}, {from + 1, 0}}}};
    };
    const auto x = [](const AnyAnnotation& badge) {
        return badge.as<NumberAnnotation>()->center.x();
    };
    for (int i = 0; i < 101; ++i)
        history.record(i == 20 ? step(7) : modify(i));
    // 51 old ones: a run of 20, the step, a run of 30. Then the newest 50.
    ASSERT_EQ(history.undoStack().size(), 53u);
    const auto& early = std::get<ModifyOperation>(history.undoStack()[0].step);
    EXPECT_EQ(x(early.before), 0);
    EXPECT_EQ(x(early.after), 20);
    EXPECT_EQ(numberOf(history.undoStack()[1]), 7);
    const auto& late = std::get<ModifyOperation>(history.undoStack()[2].step);
    EXPECT_EQ(x(late.before), 21);
    EXPECT_EQ(x(late.after), 51);
    EXPECT_EQ(x(std::get<ModifyOperation>(history.undoStack()[3].step).before), 51);
}

TEST(HistoryManager, WalksBetweenWholeStates) {
    HistoryManager<int> history(3);
    EXPECT_FALSE(history.undo() || history.redo());
    for (int state = 1; state <= 5; ++state)
        history.record(state);
    EXPECT_EQ(history.undoStack(), (std::vector{2, 3, 4}));
    EXPECT_EQ(history.undo(), 4);
    EXPECT_EQ(history.undo(), 3);
    EXPECT_EQ(history.redo(), 4);
    EXPECT_EQ(history.redoStack(), std::vector{5});
    history.record(4);
    EXPECT_FALSE(history.canRedo());
    EXPECT_FALSE(history.canUndo()) << "the state below equals the current one";
    history.record(6);
    EXPECT_TRUE(history.canUndo());
    history.cleanUp();
    EXPECT_FALSE(history.canUndo() || history.canRedo());
    history.record(7);
    history.clear();
    history.record(8);
    EXPECT_FALSE(history.canUndo() || history.canRedo()) << "nothing is left below the first";
    EXPECT_EQ(HistoryManager<int>(1000).maxHistorySize(), 100u);
}

}  // namespace
}  // namespace kestrio
