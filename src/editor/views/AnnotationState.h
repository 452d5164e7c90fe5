#pragma once

#include <QColor>
#include <QQmlEngine>

namespace kestrio {

/// What holds in the annotation mode now: tool, its settings, and what the selection allows.
struct AnnotationState {
    Q_GADGET
    QML_VALUE_TYPE(annotationState)
    Q_PROPERTY(QString id MEMBER id)  // the tool's
    Q_PROPERTY(QColor color MEMBER color)
    Q_PROPERTY(QString strokeSize MEMBER strokeSize)
    Q_PROPERTY(QString fillMode MEMBER fillMode)
    Q_PROPERTY(bool showsFill MEMBER showsFill)
    Q_PROPERTY(bool hasSelection MEMBER hasSelection)
    Q_PROPERTY(bool isNumberSelected MEMBER isNumberSelected)
    Q_PROPERTY(int selectedCount MEMBER selectedCount)
    Q_PROPERTY(bool isVisible MEMBER isVisible)
    Q_PROPERTY(bool areMarksHidden MEMBER areMarksHidden)
    Q_PROPERTY(bool hasBlur MEMBER hasBlur)
    Q_PROPERTY(QString blurType MEMBER blurType)
    Q_PROPERTY(double blurIntensity MEMBER blurIntensity)

  public:
    QString id;
    QColor color;
    QString strokeSize, fillMode;
    bool showsFill = false;
    bool hasSelection = false;
    bool isNumberSelected = false;
    int selectedCount = 0;
    bool isVisible = true;
    bool areMarksHidden = false;  ///< there are annotations, and none is shown
    bool hasBlur = false;         ///< a blur is selected; the next two are its own
    QString blurType;
    double blurIntensity = 0;  ///< 0…1
};

/// The number of a badge while it is typed.
struct NumberEditorState {
    Q_GADGET
    QML_VALUE_TYPE(numberEditorState)
    Q_PROPERTY(bool isEditing MEMBER isEditing)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString error MEMBER error)

  public:
    bool isEditing = false;
    QString text;
    QString error;  ///< what is wrong with the text; empty where nothing is
};

}  // namespace kestrio
