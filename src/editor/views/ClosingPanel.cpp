#include "editor/views/ClosingPanel.h"

#include <QGuiApplication>

namespace kestrio {

ClosingPanel::ClosingPanel(EditorViewModel& editor, EditorServices services, QObject* parent)
    : QObject(parent), closing_(editor, std::move(services)) {
    connect(&closing_, &DocumentClosing::stateChanged, this, &ClosingPanel::stateChanged);
    connect(&closing_, &DocumentClosing::errorMessageChanged, this, &ClosingPanel::stateChanged);
    connect(&closing_, &DocumentClosing::mayCloseNow, this, &ClosingPanel::mayCloseNow);
}

void ClosingPanel::saveElsewhere() {
    closing_.saveElsewhere(QGuiApplication::focusWindow());
}

}  // namespace kestrio
