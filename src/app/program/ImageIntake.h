#pragma once

#include "app/capture/CaptureCoordinator.h"
#include "platform/FileDialogs.h"
#include "platform/Pasteboard.h"

namespace kestrio {

/// The ways for pictures that exist already: the clipboard and files. Main thread.
class ImageIntake : public QObject {
    Q_OBJECT

  public:
    ImageIntake(CaptureCoordinator& captures, std::shared_ptr<Pasteboard> pasteboard,
                std::shared_ptr<FileDialogs> dialogs, std::shared_ptr<Alerts> alerts,
                QObject* parent = nullptr);
    ~ImageIntake() override;

    /// Opens the clipboard's picture, or the first file on it where that is a picture; says where
    /// there is none.
    void pasteFromClipboard();
    /// Asks for a file and opens it. A file that is no picture opens nothing.
    void importImage();

  private:
    Task<> paste();
    Task<> import();
    /// `failure` is why the clipboard could not be read; empty where it could.
    Task<> reportNothingToPaste(QString failure);

    CaptureCoordinator& captures_;
    std::shared_ptr<Pasteboard> pasteboard_;
    std::shared_ptr<FileDialogs> dialogs_;
    std::shared_ptr<Alerts> alerts_;
    std::stop_source stop_;
    bool isImporting_ = false;
    bool isPasting_ = false;
};

}  // namespace kestrio
