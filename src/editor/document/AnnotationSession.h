#pragma once

#include "annotation/editing/AnnotationViewModel.h"
#include "editor/document/EditorServices.h"
#include "editor/document/ToolMemory.h"
#include "library/color/ColorPickerViewModel.h"

namespace kestrio {

/// The annotations of a document, committed and live, and the picking of colours, which interrupts
/// annotation mode. Main thread.
class AnnotationSession : public QObject {
    Q_OBJECT
    PUBLISHED(bool, isAnnotationMode, false)
    /// Annotation mode is on, but its palette waits until a colour has been picked.
    PUBLISHED(bool, isAnnotationPanelPresentationDeferred, false)

  public:
    explicit AnnotationSession(const EditorServices& services);

    /// Committed annotations; while annotation mode is on, annotationVM() has the live ones.
    const std::vector<AnyAnnotation>& annotations() const { return annotations_; }
    Q_SIGNAL void annotationsChanged();
    /// The annotations that count, whether annotation mode is on or not.
    const std::vector<AnyAnnotation>& liveAnnotations() const;
    AnnotationViewModel& annotationVM() { return annotationVM_; }
    const AnnotationViewModel& annotationVM() const { return annotationVM_; }
    ColorPickerViewModel& colorPickerVM() { return colorPickerVM_; }
    const ColorPickerViewModel& colorPickerVM() const { return colorPickerVM_; }

    /// Replaces the whole list, committed and live.
    void reset(const std::vector<AnyAnnotation>& annotations);
    /// Moves all and what undo knows of them, as when the picture's origin moves.
    void translate(const QPointF& offset);
    /// Takes over what was drawn; called after each gesture on the canvas.
    void synchroniseAnnotations();
    /// Ends the typing of texts and numbers and takes over what was typed.
    void finishEditing();
    /// Whether there are blurs that are hidden with all other annotations, so that an output would
    /// show what they cover.
    bool hidesRedactions() const;

    void enter();
    /// With what is being typed or drawn.
    void leave();
    /// Annotation mode was on and is not any more.
    Q_SIGNAL void left();

    using UseColor = std::function<void(const PickedColor&)>;
    /// Leaves annotation mode and begins to pick a colour. Annotation mode, where it was on, goes
    /// on afterwards with the same selection. The colour goes to `use`; where none is given, it
    /// becomes the tools' colour if annotation mode was on.
    void startPicking(UseColor use);
    void stopPicking();
    /// The same, and annotation mode does not go on.
    void abandonPicking();

  private:
    void connectColorPicker();
    void setAnnotations(std::vector<AnyAnnotation> annotations);
    void resumeAfterPicking();
    void usePickedColor(const PickedColor& picked);

    std::vector<AnyAnnotation> annotations_;
    AnnotationViewModel annotationVM_;
    ToolMemory toolMemory_;
    ColorPickerViewModel colorPickerVM_;
    bool annotatesAfterPicking_ = false;
    std::vector<QUuid> selectionBeforePicking_;
    UseColor usePicked_;
};

}  // namespace kestrio
