#include "editor/views/RedactionPanel.h"

namespace kestrio {

RedactionPanel::RedactionPanel(EditorViewModel& editor, QObject* parent)
    : QObject(parent), redaction_(editor.autoRedaction()) {
    connect(&redaction_, &AutoRedaction::isScanningChanged, this, &RedactionPanel::scanningChanged);
    connect(&redaction_, &AutoRedaction::kindChanged, this, &RedactionPanel::kindChanged);
}

void RedactionPanel::setKind(const QString& id) {
    if (const auto kind = namedValue<RedactionKind>(id)) redaction_.setKind(*kind);
}

}  // namespace kestrio
