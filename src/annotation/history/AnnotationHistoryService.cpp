#include "annotation/history/AnnotationHistoryService.h"

#include "annotation/history/HistoryStack.h"

namespace kestrio {

namespace {

void translateStep(AnnotationOperation& operation, const QPointF& offset) {
    std::visit(
        [&offset]<typename Step>(Step& step) {
            if constexpr (requires { step.annotation; }) step.annotation.translate(offset);
            if constexpr (requires { step.before; }) step.before.translate(offset);
            if constexpr (requires { step.after; }) step.after.translate(offset);
            if constexpr (requires { step.operations; }) {
                for (AnnotationOperation& each : step.operations)
                    translateStep(each, offset);
            }
        },
        operation.step);
}

}  // namespace

AnnotationHistoryService::AnnotationHistoryService(MemoryPressure* memoryPressure,
                                                   std::size_t maxHistorySize, QObject* parent)
    : QObject(parent), maxHistorySize_(maxHistorySize) {
    if (!memoryPressure) return;
    memoryPressureSource_ = memoryPressure->makeMemoryPressureSource(
        [this](MemoryPressureLevel) { handleMemoryPressure(); });
}

void AnnotationHistoryService::record(AnnotationOperation operation) {
    constexpr std::size_t compactionThreshold = 100;
    undoStack_.push_back(std::move(operation));
    dropOldest(undoStack_, maxHistorySize_);
    redoStack_.clear();
    if (undoStack_.size() > compactionThreshold) compactHistory();
    refreshFlags();
}

std::optional<AnnotationOperation> AnnotationHistoryService::popForUndo() {
    if (!canUndo()) return std::nullopt;
    redoStack_.push_back(takeNewest(undoStack_));
    refreshFlags();
    return redoStack_.back();
}

std::optional<AnnotationOperation> AnnotationHistoryService::popForRedo() {
    if (!canRedo()) return std::nullopt;
    AnnotationOperation operation = takeNewest(redoStack_);
    undoStack_.push_back(operation);
    dropOldest(undoStack_, maxHistorySize_);
    refreshFlags();
    return operation;
}

AddOperation* AnnotationHistoryService::newestAddition(const QUuid& id) {
    if (undoStack_.empty()) return nullptr;
    auto* added = std::get_if<AddOperation>(&undoStack_.back().step);
    return added && added->annotation.id() == id ? added : nullptr;
}

bool AnnotationHistoryService::amendAddition(const AnyAnnotation& annotation) {
    AddOperation* added = newestAddition(annotation.id());
    if (added) added->annotation = annotation;
    return added != nullptr;
}

bool AnnotationHistoryService::dropAddition(const QUuid& id) {
    if (!newestAddition(id)) return false;
    undoStack_.pop_back();
    refreshFlags();
    return true;
}

void AnnotationHistoryService::translate(const QPointF& offset) {
    for (auto* stack : {&undoStack_, &redoStack_})
        for (AnnotationOperation& operation : *stack)
            translateStep(operation, offset);
}

void AnnotationHistoryService::handleMemoryPressure() {
    dropOldest(undoStack_, keptUnderMemoryPressure(undoStack_.size()));
    redoStack_.clear();
    refreshFlags();
}

void AnnotationHistoryService::clear() {
    undoStack_.clear();
    redoStack_.clear();
    refreshFlags();
}

// Runs of modifications become one from the first state to the last, whichever records they are
// of: what is that old is undone as a whole.
void AnnotationHistoryService::compactHistory() {
    constexpr std::size_t untouchedCount = 50;
    const std::size_t oldCount = undoStack_.size() - untouchedCount;
    std::vector<AnnotationOperation> compacted;
    for (std::size_t i = 0; i < undoStack_.size(); ++i) {
        AnnotationOperation& next = undoStack_[i];
        if (i > 0 && i < oldCount) {
            auto* pending = std::get_if<ModifyOperation>(&compacted.back().step);
            auto* later = std::get_if<ModifyOperation>(&next.step);
            if (pending && later) {
                pending->after = std::move(later->after);
                continue;
            }
        }
        compacted.push_back(std::move(next));
    }
    undoStack_ = std::move(compacted);
}

void AnnotationHistoryService::refreshFlags() {
    set_canUndo(!undoStack_.empty());
    set_canRedo(!redoStack_.empty());
}

}  // namespace kestrio
