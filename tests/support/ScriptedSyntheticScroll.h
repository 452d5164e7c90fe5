#pragma once

#include "platform/SyntheticScroll.h"

#include <functional>
#include <vector>

namespace kestrio {

/// A pointer and a wheel without a desktop.
class ScriptedSyntheticScroll : public SyntheticScroll {
  public:
    struct Turn {
        QPointF at;
        int clicks = 0;

        bool operator==(const Turn&) const = default;
    };

    bool isGranted = true;
    bool userGrants = false;  ///< what a request leads to
    int requestCount = 0;
    std::vector<Turn> turns;           ///< every one that took effect
    QPointF position;                  ///< of the pointer
    std::function<void(Turn)> onTurn;  ///< for pages that scroll; may be empty

    bool isPermitted() const override { return isGranted; }

    bool requestPermission() override {
        ++requestCount;
        isGranted = isGranted || userGrants;
        return isGranted;
    }

    void scroll(QPointF at, int clicks) override {
        if (!isGranted) return;
        position = at;
        if (clicks == 0) return;
        turns.push_back({at, clicks});
        if (onTurn) onTurn(turns.back());
    }

    QPointF pointer() const override { return position; }

    void movePointer(QPointF to) override {
        if (isGranted) position = to;
    }
};

}  // namespace kestrio
