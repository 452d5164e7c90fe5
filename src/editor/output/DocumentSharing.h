#pragma once

#include "editor/document/EditorViewModel.h"

namespace kestrio {

/// Hands the finished picture to other programs, as a PNG file of the document's name that stays
/// for a week. One at a time; failures go to the document's errorMessage. Main thread.
class DocumentSharing : public QObject {
    Q_OBJECT
    PUBLISHED(bool, isSharing, false)

  public:
    /// `name` is the document's, without an ending.
    DocumentSharing(EditorViewModel& editor, EditorServices services, QString name,
                    QObject* parent = nullptr);

    std::vector<SharingProgram> programs() const;

    /// Says why where there is no mail program.
    void email();
    void openWith(const QString& programId);
    /// Puts the file itself on the clipboard.
    void copyFile();

  private:
    enum class Way { email, openWith, copyFile };

    void fail(const QString& reason);
    void begin(Way way, QString programId = {});
    Task<> run(Way way, QString programId);
    Task<> share(Way way, QString programId);

    EditorViewModel& editor_;
    EditorServices services_;
    QString name_;
};

}  // namespace kestrio
