#pragma once

#include "editor/document/EditorViewModel.h"

#include <QColor>
#include <QQmlEngine>
#include <QVariantList>

namespace kestrio {

/// How a field of the style is read from a document and written to it.
template <typename T>
struct StyleFieldRow {
    T (*get)(const EditorViewModel&);
    void (*set)(EditorViewModel&, const T&) = nullptr;  ///< null where it is only shown
    const StyleRange* range = nullptr;                  ///< of a number, which is clamped to it

    void write(EditorViewModel& editor, const T& value) const {
        if (!set) return;
        if constexpr (std::is_same_v<T, double>) {
            set(editor, range->clamped(value));
        } else {
            set(editor, value);
        }
    }
};

/// One field of the style as QML sees it, with a property `value` of its kind. Main thread; the
/// document outlives it.
class StyleField : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the style")

  public:
    StyleField(EditorViewModel& editor, QObject* parent) : QObject(parent), editor_(editor) {}

    /// Reads the document again and signals only where that changed the value, so that bindings of
    /// other fields rest.
    virtual void refresh() = 0;
    /// Makes live changes a step of undo.
    Q_INVOKABLE void commit() { editor_.recordSnapshot(); }

    Q_SIGNAL void valueChanged();

  protected:
    EditorViewModel& editor_;
};

/// What all kinds have: the value, of which an assignment is a live change, and choose(), which
/// makes a step of undo of it too.
#define KESTRIO_STYLE_FIELD_KIND(Kind, Type)                                     \
    Q_PROPERTY(Type value READ value WRITE set NOTIFY valueChanged)              \
  public:                                                                        \
    using Row = StyleFieldRow<Type>;                                             \
    Kind(EditorViewModel& editor, const Row& row, QObject* parent)               \
        : StyleField(editor, parent), row_(row), value_(row.get(editor)) {}      \
    const Type& value() const {                                                  \
        return value_;                                                           \
    }                                                                            \
    void set(const Type& value) {                                                \
        row_.write(editor_, value);                                              \
    }                                                                            \
    Q_INVOKABLE void choose(const Type& value) {                                 \
        set(value);                                                              \
        commit();                                                                \
    }                                                                            \
    void refresh() override {                                                    \
        if (assignIfDifferent(value_, row_.get(editor_))) Q_EMIT valueChanged(); \
    }                                                                            \
                                                                                 \
  private:                                                                       \
    const Row& row_;                                                             \
    Type value_;

// The base has its whole name, by which the QML tools look it up.

/// A number in its range, to which assigned values are clamped.
class StyleNumber : public kestrio::StyleField {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the style")
    Q_PROPERTY(double least READ least CONSTANT)
    Q_PROPERTY(double greatest READ greatest CONSTANT)
    Q_PROPERTY(double standard READ standard CONSTANT)
    KESTRIO_STYLE_FIELD_KIND(StyleNumber, double)

  public:
    double least() const { return row_.range->least; }
    double greatest() const { return row_.range->greatest; }
    double standard() const { return row_.range->standard; }
};

class StyleSwitch : public kestrio::StyleField {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the style")
    KESTRIO_STYLE_FIELD_KIND(StyleSwitch, bool)
};

/// A typed text, or the id of a choice. Ids that do not exist change nothing.
class StyleText : public kestrio::StyleField {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the style")
    KESTRIO_STYLE_FIELD_KIND(StyleText, QString)
};

class StyleColor : public kestrio::StyleField {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the style")
    KESTRIO_STYLE_FIELD_KIND(StyleColor, QColor)
};

/// A list of colours.
class StyleColors : public kestrio::StyleField {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the style")
    KESTRIO_STYLE_FIELD_KIND(StyleColors, QVariantList)
};

}  // namespace kestrio
