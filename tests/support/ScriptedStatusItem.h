#pragma once

#include "platform/StatusItem.h"

namespace kestrio {

/// A tray whose menu a test opens and chooses from.
class ScriptedStatusItem : public StatusItem {
  public:
    bool hasTray = true;

    bool isAvailable() const override { return hasTray; }

    void show(std::shared_ptr<StatusItemModel> model) override {
        model_ = std::move(model);
        following_ = std::make_unique<QObject>();
        QObject::connect(model_.get(), &StatusItemModel::menuChanged, following_.get(), [this] {
            if (isOpen_) menu_ = model_->menu();
        });
    }

    bool isShown() const { return model_ != nullptr; }
    QIcon icon() const { return model_ ? model_->icon() : QIcon(); }
    QString toolTip() const { return model_ ? model_->toolTip() : QString(); }

    /// Opens the menu; it is empty before show().
    void openMenu() {
        isOpen_ = true;
        menu_ = model_ ? model_->menu() : StatusMenu();
    }
    /// What it shows.
    const StatusMenu& menu() const { return menu_; }
    /// Chooses the entry of this index, which closes the menu first.
    void choose(std::size_t index) {
        isOpen_ = false;
        const StatusMenuEntry chosen = std::exchange(menu_, {}).at(index);
        if (chosen.isEnabled && chosen.action) chosen.action();
    }

  private:
    std::shared_ptr<StatusItemModel> model_;
    std::unique_ptr<QObject> following_;
    StatusMenu menu_;
    bool isOpen_ = false;
};

}  // namespace kestrio
