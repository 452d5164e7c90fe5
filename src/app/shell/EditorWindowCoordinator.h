#pragma once

#include "app/shell/ActivationState.h"
#include "app/shell/EditorOpener.h"
#include "editor/document/EditorServices.h"

#include <functional>
#include <memory>

namespace kestrio {

class EditorWindow;

/// Whether the program becomes a mere icon again when a window is closed.
enum class AfterClosing { restoreAccessory, keepPolicy };

/// The program's one editor window. Main thread.
class EditorWindowCoordinator : public QObject, public EditorOpener {
    Q_OBJECT
    PUBLISHED(bool, isEditorOpen, false)

  public:
    /// `makeServices` is asked at the first editor: what an editor needs costs memory.
    EditorWindowCoordinator(std::function<EditorServices()> makeServices,
                            std::shared_ptr<ActivationState> activation, QObject* parent = nullptr);
    ~EditorWindowCoordinator() override;

    void open(const CapturedImage& image, const QString& name) override;
    EditorViewModel* currentEditorViewModel() override;
    void close(AfterClosing after);
    /// Gives the editor's window the focus; false where none is open.
    bool bringToFront();
    /// Writes where the window is, as the program ends. Nothing without a window.
    void saveFrame(UserDefaults& defaults) const;

  private:
    void showCentred();
    void windowWasClosed();

    std::function<EditorServices()> makeServices_;
    std::optional<EditorServices> services_;
    std::shared_ptr<ActivationState> activation_;
    std::unique_ptr<EditorWindow> editor_;
};

}  // namespace kestrio
