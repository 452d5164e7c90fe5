#pragma once

#include "editor/views/EditorController.h"
#include "ui/views/EngineLease.h"

class QQuickWindow;

namespace kestrio {

/// One editor with its window. Needs a GUI application on a display; main thread.
class EditorWindow {
  public:
    /// `name` heads the window.
    EditorWindow(EditorServices services, const QString& name);
    ~EditorWindow();
    Q_DISABLE_COPY_MOVE(EditorWindow)

    /// Shows the window on a picture. Throws Error where the window cannot be made.
    void open(const Image& image);

    EditorController& controller() { return controller_; }
    /// Null before open().
    QQuickWindow* window() const { return window_.get(); }

  private:
    EngineLease lease_;
    EditorController controller_;
    std::unique_ptr<QQuickWindow> window_;
};

}  // namespace kestrio
