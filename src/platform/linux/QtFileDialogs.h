#pragma once

#include "platform/FileDialogs.h"

namespace kestrio {

/// Panels through QFileDialog, which takes the desktop's own where Qt has a theme for it. Needs a
/// QApplication.
class QtFileDialogs : public FileDialogs {
  public:
    Task<std::optional<QString>> chooseOpen(OpenPanelRequest request,
                                            std::stop_token stop) override;
    Task<std::optional<QString>> chooseFolder(OpenPanelRequest request,
                                              std::stop_token stop) override;
    Task<std::optional<QString>> chooseSave(SavePanelRequest request,
                                            std::stop_token stop) override;

  private:
    QObject lifetime_;  // open panels go when it goes
};

}  // namespace kestrio
