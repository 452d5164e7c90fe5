#pragma once

#include "editor/document/EditorViewModel.h"
#include "editor/keyboard/ShortcutHintManager.h"
#include "editor/views/AnnotationState.h"

#include <QQmlEngine>
#include <QVariantMap>

namespace kestrio {

/// The annotation tools as the palette, the context menu and the number editor show them. Holds no
/// logic of the annotations. Main thread.
class AnnotationPanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    Q_PROPERTY(kestrio::AnnotationState tool READ tool NOTIFY toolChanged)
    Q_PROPERTY(QVariantList tools READ tools CONSTANT)
    Q_PROPERTY(QVariantList quickColors READ quickColorList CONSTANT)
    Q_PROPERTY(QVariantList strokeSizes READ strokeSizes CONSTANT)
    Q_PROPERTY(QVariantList fillModes READ fillModes CONSTANT)
    Q_PROPERTY(QVariantList blurTypes READ blurTypes CONSTANT)
    Q_PROPERTY(QVariantList alignments READ alignments CONSTANT)
    Q_PROPERTY(
        kestrio::NumberEditorState numberEditing READ numberEditing NOTIFY numberEditingChanged)
    Q_PROPERTY(bool isTextEditing READ isTextEditing NOTIFY toolChanged)

  public:
    AnnotationPanel(EditorViewModel& editor, ShortcutHintManager& hints, QObject* parent = nullptr);

    AnnotationState tool() const;
    /// Each {id, name, key, description}.
    QVariantList tools() const;
    QVariantList quickColorList() const;
    QVariantList strokeSizes() const;
    QVariantList fillModes() const;
    QVariantList blurTypes() const;
    /// Ways to line up or spread out the selection, each {id, name, symbol, least}: how many
    /// records it takes at least.
    QVariantList alignments() const;
    NumberEditorState numberEditing() const;
    bool isTextEditing() const { return annotations().textEditing().isTextEditing(); }

    Q_INVOKABLE void setTool(const QString& id);
    Q_INVOKABLE void setColor(const QColor& color);
    Q_INVOKABLE void setStrokeSize(const QString& id);
    Q_INVOKABLE void setFillMode(const QString& id);
    /// Live; commitBlur() makes it a step of undo.
    Q_INVOKABLE void setBlur(const QString& type, double intensity);
    Q_INVOKABLE void commitBlur();
    Q_INVOKABLE void toggleVisibility();
    /// Ends the typing of texts and numbers, as when the focus goes elsewhere.
    Q_INVOKABLE void finishEditing();
    Q_INVOKABLE void align(const QString& id);
    /// Of the selected badge: counts on from it, or takes it away and closes the gap.
    Q_INVOKABLE void renumberFromHere();
    Q_INVOKABLE void deleteAndRenumber();
    Q_INVOKABLE void setNumberText(const QString& text);
    Q_INVOKABLE void commitNumber();
    Q_INVOKABLE void cancelNumber() { annotations().numberEditing().cancel(); }

    Q_SIGNAL void toolChanged();
    Q_SIGNAL void numberEditingChanged();

  private:
    AnnotationViewModel& annotations() { return editor_.annotationVM(); }
    const AnnotationViewModel& annotations() const { return editor_.annotationVM(); }
    const NumberAnnotation* selectedNumber() const;
    /// Shows the tip for an action that was done by the pointer, once.
    void hint(const QString& action);

    EditorViewModel& editor_;
    ShortcutHintManager& hints_;
    std::optional<EditTransaction> blurEdit_;
};

}  // namespace kestrio
