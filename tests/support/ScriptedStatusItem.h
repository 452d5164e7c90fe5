#pragma once

#include "platform/StatusItem.h"

namespace kestrio {

/// A tray whose menu a test opens and chooses from.
class ScriptedStatusItem : public StatusItem {
  public:
    bool hasTray = true;
    bool isShown = false;
    QIcon icon;
    QString toolTip;

    bool isAvailable() const override { return hasTray; }

    void show(const QIcon& shownIcon, const QString& shownToolTip,
              std::function<StatusMenu()> menu) override {
        isShown = true;
        menu_ = std::move(menu);
        setIcon(shownIcon, shownToolTip);
    }

    void setIcon(const QIcon& shownIcon, const QString& shownToolTip) override {
        icon = shownIcon;
        toolTip = shownToolTip;
    }

    /// The menu as the program builds it now; empty before show().
    StatusMenu openMenu() const { return menu_ ? menu_() : StatusMenu(); }

  private:
    std::function<StatusMenu()> menu_;
};

}  // namespace kestrio
