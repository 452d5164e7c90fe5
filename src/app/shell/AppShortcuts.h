#pragma once

#include <QKeyCombination>
#include <QObject>
#include <functional>
#include <vector>

namespace kestrio {

/// Keys of the whole program while one of its windows has the focus; the menu of the tray, which has
/// no keys of its own, offers the same. Text fields and windows never see them. Main thread.
class AppShortcuts : public QObject {
    Q_OBJECT

  public:
    explicit AppShortcuts(QObject* parent = nullptr);

    void add(QKeyCombination keys, std::function<void()> action);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Entry {
        QKeyCombination keys;
        std::function<void()> action;
    };
    std::vector<Entry> entries_;
};

}  // namespace kestrio
