#pragma once

#include "editor/document/EditorViewModel.h"

#include <QPointer>
#include <QWindow>

namespace kestrio {

enum class ExportState { idle, exporting, success, failure };

inline constexpr EnumTable<ExportState, 4> exportStates = {{
    {ExportState::idle, "idle"},
    {ExportState::exporting, "exporting"},
    {ExportState::success, "success"},
    {ExportState::failure, "failure"},
}};
constexpr const auto& enumTable(ExportState) {
    return exportStates;
}

/// The export sheet: a format, the user's choice of a file, and what became of it. The document is
/// untouched by every ending. Main thread.
class ExportOptions : public QObject {
    Q_OBJECT
    PUBLISHED(ExportState, state, ExportState::idle)
    PUBLISHED_WRITABLE(ExportFormat, selectedFormat, ExportFormat::png)
    /// Why the last export failed.
    PUBLISHED(QString, errorMessage, {})
    PUBLISHED(QString, savedPath, {})
    /// How much of the encoding is done, 0 to 1.
    PUBLISHED(double, progress, 0)

  public:
    /// Starts with the preferred format.
    ExportOptions(EditorViewModel& editor, EditorServices services, QObject* parent = nullptr);
    ~ExportOptions() override;

    /// Asks for a file in a panel of `parent`, then renders and writes. A dismissed question leaves
    /// the state as it was; while one export or question is under way another is not begun.
    void exportPicture(QWindow* parent = nullptr);
    /// Stops an export under way, which ends idle.
    void cancel();
    /// Shows the written file in the desktop's file viewer.
    void reveal();
    /// Back to the choice of a format; not while exporting.
    void restart();

  private:
    Task<> run(QPointer<QWindow> parent);
    Task<> write(QString path);

    EditorViewModel& editor_;
    EditorServices services_;
    bool isAsking_ = false;
    std::stop_source stop_;
};

}  // namespace kestrio
