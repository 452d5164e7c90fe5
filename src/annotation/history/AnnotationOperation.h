#pragma once

#include "annotation/model/AnyAnnotation.h"

namespace kestrio {

struct AnnotationOperation;

/// One step of editing, as a value that holds whole copies of records.
struct AddOperation {
    AnyAnnotation annotation;
};

/// Undone, the record comes back on top, wherever it was.
struct DeleteOperation {
    AnyAnnotation annotation;
};

struct ModifyOperation {
    AnyAnnotation before;
    AnyAnnotation after;
};

/// Positions in the list from the bottom up.
struct ReorderOperation {
    QUuid annotationId;
    std::size_t fromIndex = 0;
    std::size_t toIndex = 0;
};

struct CompactedBatch {
    std::vector<AnnotationOperation> operations;
};

struct AnnotationOperation {
    std::variant<AddOperation, DeleteOperation, ModifyOperation, ReorderOperation, CompactedBatch>
        step;
};

}  // namespace kestrio
