#pragma once

#include "platform/FileDialogs.h"

#include <QFileDialog>

namespace kestrio {

/// A save panel that appends suffixes and asks before a file is replaced. QFileDialog asks in an
/// event loop of its own, which the panel's owner must not be destroyed in, and it takes every dot
/// in a name for the start of a suffix.
class QtSavePanel : public QFileDialog {
  public:
    explicit QtSavePanel(const SavePanelRequest& request);

    /// The file that the user chose, with its suffix.
    QString chosenFile() const;

    void accept() override;

  private:
    void askBeforeReplacing(const QString& file);

    std::vector<kestrio::FileType> types_;  // QFileDialog has a FileType too
    bool isNative_;
};

/// One line of a panel's list of types.
QString nameFilter(const FileType& type);

}  // namespace kestrio
