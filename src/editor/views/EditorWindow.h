#pragma once

#include "editor/views/EditorController.h"

#include <QQmlApplicationEngine>

namespace kestrio {

/// One editor with its window. Needs a GUI application on a display; main thread.
class EditorWindow {
  public:
    /// `name` heads the window and the first suggestion for a file.
    EditorWindow(EditorServices services, const QString& name);

    /// Shows the window on a picture. Throws Error where the window cannot be made.
    void open(const Image& image);

    EditorController& controller() { return controller_; }
    QObject* root() const;

  private:
    EditorController controller_;
    QQmlApplicationEngine engine_;
};

}  // namespace kestrio
