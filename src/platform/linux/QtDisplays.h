#pragma once

#include "platform/Displays.h"
#include "platform/linux/x11/XcbConnection.h"

#include <optional>

class QScreen;

namespace kestrio {

/// The screens that Qt knows. Qt rounds sizes in points to whole numbers; the pixels are the X
/// server's own where there is one, and otherwise reckoned back.
class QtDisplays : public Displays {
    Q_OBJECT

  public:
    explicit QtDisplays(std::shared_ptr<XcbConnection> connection);

    std::vector<Display> displays() const override;
    QPointF pointerPosition() const override;

  private:
    void follow(QScreen* screen);
    /// Signals any number of changes once, after what Qt has to say about them.
    void noteChange();

    std::shared_ptr<XcbConnection> connection_;
    mutable std::optional<std::vector<Display>> known_;  // until something changes
    bool isChanging_ = false;
};

}  // namespace kestrio
