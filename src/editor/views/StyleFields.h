#pragma once

#include "editor/document/EditorViewModel.h"

#include <QVariantMap>

namespace kestrio {

// The document's style as the panels see it: one row a field, by name.

/// A colour as views give it.
CodableColor codableColor(const QColor& color);

/// All fields, for bindings.
QVariantMap styleFields(const EditorViewModel& editor);

/// Of a field that is a number, {least, greatest, standard}.
QVariantMap styleRange(const QString& name);

/// Sets one field and records nothing; false for an unknown name. Numbers out of range are clamped.
bool setStyleField(EditorViewModel& editor, const QString& name, const QVariant& value);

}  // namespace kestrio
