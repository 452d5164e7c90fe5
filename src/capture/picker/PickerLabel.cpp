#include "capture/picker/PickerLabel.h"

#include <QFontMetricsF>

namespace kestrio {

namespace {

constexpr int shortLength = 15;
constexpr double sideRoom = 16;

QString cutShort(const QString& part) {
    return part.size() > shortLength ? part.left(shortLength) + QStringLiteral("...") : part;
}

QString joined(const QString& owner, const QString& title) {
    return title.isEmpty() || title == owner ? owner : owner + QStringLiteral(" – ") + title;
}

}  // namespace

QString pickerLabel(const WindowInfo& window, const QFont& font, double width) {
    const QFontMetricsF metrics(font);
    const double room = width - sideRoom;
    const QString whole = joined(window.ownerName, window.windowName);
    if (metrics.horizontalAdvance(whole) <= room) return whole;
    return joined(cutShort(window.ownerName), cutShort(window.windowName));
}

}  // namespace kestrio
