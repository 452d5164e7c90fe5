#include "support/AnnotationSamples.h"

#include "annotation/editing/AnnotationViewModel.h"
#include "support/Gestures.h"

#include <gtest/gtest.h>

#include <random>

namespace kestrio {
namespace {

enum class Deletes { never, sometimes };

/// A user who edits at random, the same way for the same seed.
class RandomUser {
  public:
    RandomUser(AnnotationViewModel& model, unsigned seed, Deletes deletes)
        : model_(model), random_(seed), deletes_(deletes) {}

    void act() {
        switch (below(deletes_ == Deletes::sometimes ? 13 : 10)) {
            case 0:
                draw();
                break;
            case 1:
                draw();
                break;
            case 2:
                model_.setStrokeSize(strokeSizes[static_cast<std::size_t>(below(4))].value);
                break;
            case 3:
                model_.setFillMode(fillModes[static_cast<std::size_t>(below(3))].value);
                break;
            case 4:
                model_.bringToFront(anyId());
                break;
            case 5:
                model_.sendToBack(anyId());
                break;
            case 6:
                drag();
                break;
            case 7:
                model_.selectInRect({point(), point()});
                break;
            case 8:
                model_.align(alignmentTypes[static_cast<std::size_t>(below(6))].value);
                break;
            case 9:
                model_.renumber(anyId(), below(5));
                break;
            case 10:
                model_.deleteAnnotation(anyId());
                break;
            case 11:
                model_.eraseAt(point(), 8);
                break;
            default:
                model_.distribute(DistributionAxis::vertical);
                break;
        }
        model_.setColor(quickColors[static_cast<std::size_t>(below(10))]);
    }

  private:
    int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    QPointF point() { return {below(4000) / 8.0, below(4000) / 8.0}; }

    QUuid anyId() {
        const auto& list = model_.annotations();
        if (list.empty()) return {};
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))].id();
    }

    void draw() {
        model_.set_currentTool(annotationTools()[static_cast<std::size_t>(below(11))].tool);
        startDrawing(model_, point());
        for (int i = below(6); i >= 0; --i)
            model_.moveGesture({point()});
        end();
    }

    void drag() {
        const AnyAnnotation* annotation = model_.annotation(anyId());
        if (!annotation) return;
        model_.selectAnnotation(*annotation);
        startDrag(model_);
        for (int i = 0; i < 4; ++i)
            model_.moveGesture({point()});
        if (below(3) == 0) model_.moveGesture({{0, 0}});
        end();
    }

    void end() { below(5) == 0 ? model_.cancelGesture() : model_.finishGesture(); }

    AnnotationViewModel& model_;
    std::mt19937 random_;
    Deletes deletes_;
};

std::vector<AnyAnnotation> sortedById(std::vector<AnyAnnotation> list) {
    std::ranges::sort(list, {}, &AnyAnnotation::id);
    return list;
}

TEST(EditingScripts, UndoAndRedoLeadBackAndForth) {
    for (unsigned seed = 0; seed < 400; ++seed) {
        const Deletes deletes = seed % 2 == 0 ? Deletes::never : Deletes::sometimes;
        const std::vector<AnyAnnotation> before = oneOfEach();
        AnnotationViewModel model(before);
        RandomUser user(model, seed, deletes);
        const AnnotationHistoryService& history = model.historyService();
        for (int i = 0; i < 30 && history.undoStack().size() < 30; ++i)
            user.act();
        ASSERT_LT(history.undoStack().size(), history.maxHistorySize());
        const std::vector<AnyAnnotation> after = model.annotations();

        // Every step back, and each of them forth again, so that no step is a dead one.
        while (history.canUndo())
            model.undo();
        if (deletes == Deletes::never) {
            ASSERT_EQ(model.annotations(), before) << seed;
        } else {
            // Undone deletes come back on top, so only the order may differ.
            ASSERT_EQ(sortedById(model.annotations()), sortedById(before)) << seed;
        }
        while (history.canRedo())
            model.redo();
        ASSERT_EQ(model.annotations(), after) << seed;

        for (const QUuid& id : model.selectedAnnotations())
            ASSERT_NE(model.annotation(id), nullptr) << seed;
        if (const auto& primary = model.selectedAnnotation()) {
            ASSERT_NE(model.annotation(primary->id()), nullptr) << seed;
            ASSERT_EQ(encodeJson(*primary), encodeJson(*model.annotation(primary->id()))) << seed;
        }
    }
}

}  // namespace
}  // namespace kestrio
