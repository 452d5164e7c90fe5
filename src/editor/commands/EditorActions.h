#pragma once

namespace kestrio {

/// What commands ask of the window beside its document. Main thread.
class EditorActions {
  public:
    virtual ~EditorActions() = default;

    virtual void copy() = 0;
    virtual void paste() = 0;
    virtual void pin() = 0;
    /// Opens the sheet that saves the picture, and the menu that shares it.
    virtual void save() = 0;
    virtual void share() = 0;
    /// Begins to pick a colour from the picture, or ends it.
    virtual void pickColor() = 0;
    virtual void closeWindow() = 0;
    /// A picture is on its way out, so that no other one can leave.
    virtual bool isBusy() const = 0;
};

}  // namespace kestrio
