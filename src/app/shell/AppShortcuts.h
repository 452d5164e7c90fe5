#pragma once

#include <QKeyCombination>
#include <QObject>
#include <functional>
#include <vector>

namespace kestrio {

/// Keys of the whole program while one of its windows has the focus; the menu of the tray
/// offers the same and shows most of the keys. Text fields and windows never see them. Main thread.
class AppShortcuts : public QObject {
    Q_OBJECT

  public:
    static constexpr QKeyCombination captureRegion = Qt::CTRL | Qt::Key_4;
    static constexpr QKeyCombination captureWindow = Qt::CTRL | Qt::Key_5;
    static constexpr QKeyCombination paste = Qt::CTRL | Qt::SHIFT | Qt::Key_V;
    static constexpr QKeyCombination importImage = Qt::CTRL | Qt::Key_O;
    static constexpr QKeyCombination preferences = Qt::CTRL | Qt::Key_Comma;
    static constexpr QKeyCombination quit = Qt::CTRL | Qt::Key_Q;

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
