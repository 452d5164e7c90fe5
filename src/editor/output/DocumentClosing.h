#pragma once

#include "editor/document/EditorViewModel.h"

class QWindow;

namespace kestrio {

enum class ClosingState {
    open,     ///< nobody wants to close
    waiting,  ///< until an export under way has ended
    asking,   ///< the user decides about changes that would be lost
    saving,
};

inline constexpr EnumTable<ClosingState, 4> closingStates = {{
    {ClosingState::open, "open"},
    {ClosingState::waiting, "waiting"},
    {ClosingState::asking, "asking"},
    {ClosingState::saving, "saving"},
}};
constexpr const auto& enumTable(ClosingState) {
    return closingStates;
}

/// Lets a document close only when nothing of the user's work is lost by it: it waits for an export
/// under way and asks about changes that were never exported. Main thread.
class DocumentClosing : public QObject {
    Q_OBJECT
    PUBLISHED(ClosingState, state, ClosingState::open)
    /// Why saving failed; empty where it did not.
    PUBLISHED(QString, errorMessage, {})

  public:
    DocumentClosing(EditorViewModel& editor, EditorServices services, QObject* parent = nullptr);
    ~DocumentClosing() override;

    /// Whether the window may close now. Where not, mayCloseNow() follows as soon as it may, unless
    /// the user decides otherwise.
    bool requestClose();
    Q_SIGNAL void mayCloseNow();
    /// The user has decided to go on with the document.
    Q_SIGNAL void cancelled();

    // Answers while asking.

    /// A quick save, after which the document may close. A failure goes on asking.
    void save();
    /// The same into a folder that the user chooses in a panel of `parent`.
    void saveElsewhere(QWindow* parent);
    void discard();
    void cancel();

  private:
    Task<> runSave(QString folder);
    Task<> chooseAndSave(QWindow* parent);
    void exportEnded();
    void release();

    EditorViewModel& editor_;
    EditorServices services_;
    std::stop_source stop_;
    bool isReleased_ = false;
};

}  // namespace kestrio
