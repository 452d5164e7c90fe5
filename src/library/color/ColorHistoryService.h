#pragma once

#include "core/Published.h"
#include "core/UserDefaults.h"
#include "library/color/PickedColor.h"

#include <QObject>
#include <memory>

namespace kestrio {

/// The colours picked last, newest first, kept as one JSON list at "com.kestrio.colorHistory". Main
/// thread.
class ColorHistoryService : public QObject {
    Q_OBJECT
    PUBLISHED(std::vector<PickedColor>, recentColors, {})

  public:
    static constexpr std::size_t maxHistoryCount = 8;

    /// Reads what is kept; a list that cannot be read is logged and counts as none.
    explicit ColorHistoryService(std::shared_ptr<UserDefaults> userDefaults,
                                 QObject* parent = nullptr);

    /// Puts a colour first, in place of one that is nearly the same, and drops the oldest beyond
    /// maxHistoryCount. A failure to save is logged, and the list stands.
    void add(const PickedColor& color);

  private:
    void load();
    void save();

    std::shared_ptr<UserDefaults> userDefaults_;
};

}  // namespace kestrio
