#pragma once

#include "editor/views/EditorController.h"
#include "ui/views/EngineLease.h"

class QQuickWindow;

namespace kestrio {

/// One editor with its window. Needs a GUI application on a display; main thread.
class EditorWindow {
  public:
    /// On a document that may be open already; `name` heads the window.
    EditorWindow(std::shared_ptr<EditorViewModel> document, EditorServices services,
                 const QString& name);
    ~EditorWindow();
    Q_DISABLE_COPY_MOVE(EditorWindow)

    /// Throws Error where the window cannot be made.
    void show();

    EditorController& controller() { return controller_; }
    /// Null before show().
    QQuickWindow* window() const { return window_.get(); }

  private:
    EngineLease lease_;
    EditorController controller_;
    std::unique_ptr<QQuickWindow> window_;
};

}  // namespace kestrio
