#pragma once

#include "platform/GlobalHotkeys.h"

#include <memory>

namespace kestrio {

/// Return, Enter and Escape for as long as this exists, whichever window has the focus. A key that
/// another program holds does not work, and the others still do. Main thread.
class CaptureKeys : public QObject {
    Q_OBJECT

  public:
    explicit CaptureKeys(std::shared_ptr<GlobalHotkeys> hotkeys, QObject* parent = nullptr);
    ~CaptureKeys() override;

    Q_SIGNAL void confirmed();
    Q_SIGNAL void cancelled();

  private:
    std::shared_ptr<GlobalHotkeys> hotkeys_;
};

}  // namespace kestrio
