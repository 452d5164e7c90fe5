#pragma once

#include "annotation/history/AnnotationOperation.h"
#include "core/Published.h"
#include "platform/MemoryPressure.h"

#include <QObject>

namespace kestrio {

/// The steps that can be undone and redone. It keeps them and does not know how to apply them.
/// Main thread only.
class AnnotationHistoryService : public QObject {
    Q_OBJECT
    PUBLISHED(bool, canUndo, false)
    PUBLISHED(bool, canRedo, false)

  public:
    static constexpr std::size_t defaultHistorySize = 50;

    /// Without a source of memory pressure, handleMemoryPressure() is left to the owner.
    explicit AnnotationHistoryService(MemoryPressure* memoryPressure = nullptr,
                                      std::size_t maxHistorySize = defaultHistorySize,
                                      QObject* parent = nullptr);

    /// One step of undo; what was undone before can no longer be redone.
    void record(AnnotationOperation operation);
    /// The step that the caller has to undo, or none.
    std::optional<AnnotationOperation> popForUndo();
    /// The step that the caller has to redo, or none.
    std::optional<AnnotationOperation> popForRedo();
    /// Where the newest step of undo added this record, the step adds what the record is now, so
    /// that making and completing it are one step; false where another step is the newest.
    bool amendAddition(const AnyAnnotation& annotation);
    /// Where the newest step of undo added the record of this id, there is no such step any more;
    /// false where another step is the newest.
    bool dropAddition(const QUuid& id);
    /// Moves every record of every step, as when the picture's origin moves.
    void translate(const QPointF& offset);
    /// Forgets the older half, and all that could be redone.
    void handleMemoryPressure();
    /// Forgets all steps.
    void clear();

    /// The newest stands last.
    const std::vector<AnnotationOperation>& undoStack() const { return undoStack_; }
    const std::vector<AnnotationOperation>& redoStack() const { return redoStack_; }
    std::size_t maxHistorySize() const { return maxHistorySize_; }

  private:
    AddOperation* newestAddition(const QUuid& id);
    void compactHistory();
    void refreshFlags();

    std::vector<AnnotationOperation> undoStack_;
    std::vector<AnnotationOperation> redoStack_;
    std::size_t maxHistorySize_;
    std::shared_ptr<MemoryPressureSource> memoryPressureSource_;
};

}  // namespace kestrio
