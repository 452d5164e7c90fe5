#pragma once

#include "annotation/history/HistoryStack.h"
#include "core/Published.h"
#include "platform/MemoryPressure.h"

#include <QObject>
#include <optional>

namespace kestrio {

/// What views see of a HistoryManager, whose own class is a template and can have no signals.
class HistoryFlags : public QObject {
    Q_OBJECT
    PUBLISHED(bool, canUndo, false)
    PUBLISHED(bool, canRedo, false)

  public:
    using QObject::QObject;
};

/// Undo by whole states, which need equality. Main thread only.
template <typename State>
class HistoryManager : public HistoryFlags {
  public:
    static constexpr std::size_t greatestHistorySize = 100;

    explicit HistoryManager(std::size_t maxHistorySize = greatestHistorySize,
                            MemoryPressure* memoryPressure = nullptr, QObject* parent = nullptr)
        : HistoryFlags(parent), maxHistorySize_(std::min(maxHistorySize, greatestHistorySize)) {
        if (!memoryPressure) return;
        memoryPressureSource_ = memoryPressure->makeMemoryPressureSource(
            [this](MemoryPressureLevel) { handleMemoryPressure(); });
    }

    /// Makes a state the current one; the one before it can be undone to.
    void record(State state) {
        if (currentState_) pushUndo(std::move(*currentState_));
        redoStack_.clear();
        currentState_ = std::move(state);
        refreshFlags();
    }

    /// The state before the current one, which it replaces; none where there is none.
    std::optional<State> undo() {
        if (undoStack_.empty()) return std::nullopt;
        if (currentState_) redoStack_.push_back(std::move(*currentState_));
        currentState_ = takeNewest(undoStack_);
        refreshFlags();
        return currentState_;
    }

    /// The state that was undone last; none where there is none.
    std::optional<State> redo() {
        if (redoStack_.empty()) return std::nullopt;
        if (currentState_) pushUndo(std::move(*currentState_));
        currentState_ = takeNewest(redoStack_);
        refreshFlags();
        return currentState_;
    }

    /// Forgets the older half, and all that could be redone.
    void handleMemoryPressure() {
        dropOldest(undoStack_, keptUnderMemoryPressure(undoStack_.size()));
        redoStack_.clear();
        refreshFlags();
    }

    /// Forgets all states, the current one too: the next one recorded cannot be undone.
    void clear() {
        undoStack_.clear();
        redoStack_.clear();
        currentState_.reset();
        refreshFlags();
    }

    /// Forgets all but the current state and listens to memory pressure no longer.
    void cleanUp() {
        undoStack_.clear();
        redoStack_.clear();
        memoryPressureSource_.reset();
        refreshFlags();
    }

    /// The newest stands last.
    const std::vector<State>& undoStack() const { return undoStack_; }
    const std::vector<State>& redoStack() const { return redoStack_; }
    const std::optional<State>& currentState() const { return currentState_; }
    std::size_t maxHistorySize() const { return maxHistorySize_; }

  private:
    void pushUndo(State state) {
        undoStack_.push_back(std::move(state));
        dropOldest(undoStack_, maxHistorySize_);
    }

    /// Undoing to an equal state would show nothing.
    void refreshFlags() {
        set_canUndo(!undoStack_.empty() && !(currentState_ && undoStack_.back() == *currentState_));
        set_canRedo(!redoStack_.empty());
    }

    std::vector<State> undoStack_;
    std::vector<State> redoStack_;
    std::optional<State> currentState_;
    std::size_t maxHistorySize_;
    std::shared_ptr<MemoryPressureSource> memoryPressureSource_;
};

}  // namespace kestrio
