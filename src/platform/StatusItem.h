#pragma once

#include "core/Published.h"
#include "platform/VirtualKeys.h"

#include <QIcon>
#include <QObject>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace kestrio {

/// An entry of the status item's menu. One without a title is a separator; one with entries below
/// it opens these and has no action.
struct StatusMenuEntry {
    QString title;
    std::function<void()> action;
    std::optional<KeyCombination> shortcut;  ///< shown only; the menu does not listen for it
    QString toolTip;
    bool isEnabled = true;
    std::vector<StatusMenuEntry> entries;
    QString icon = {};  ///< name of one in assets/icons; none where empty

    bool isSeparator() const { return title.isEmpty(); }
};

using StatusMenu = std::vector<StatusMenuEntry>;

/// What the status item shows, and what the program changes while it is shown. Main thread only.
class StatusItemModel : public QObject {
    Q_OBJECT
    PUBLISHED_WRITABLE(QIcon, icon, {})
    PUBLISHED_WRITABLE(QString, toolTip, {})

  public:
    /// `menu` gives the entries as they are now.
    explicit StatusItemModel(std::function<StatusMenu()> menu) : menu_(std::move(menu)) {}

    StatusMenu menu() const { return menu_(); }
    /// The entries have become others, which counts for a menu that is open. Each menu that opens
    /// asks for them anyhow.
    Q_SIGNAL void menuChanged();

  private:
    std::function<StatusMenu()> menu_;
};

/// The program's icon in the desktop's tray. Main thread only.
class StatusItem {
  public:
    virtual ~StatusItem() = default;

    /// Whether the desktop has a tray now. One that comes later gets the icon then.
    virtual bool isAvailable() const = 0;
    /// Shows what the model holds and follows it from then on. Actions run after the menu has left
    /// the screen.
    virtual void show(std::shared_ptr<StatusItemModel> model) = 0;
};

}  // namespace kestrio
