#include "library/color/ColorHistoryService.h"

#include "core/Log.h"

namespace kestrio {

namespace {
const QString historyKey = QStringLiteral("com.kestrio.colorHistory");
}

ColorHistoryService::ColorHistoryService(std::shared_ptr<UserDefaults> userDefaults,
                                         QObject* parent)
    : QObject(parent), userDefaults_(std::move(userDefaults)) {
    load();
}

void ColorHistoryService::add(const PickedColor& color) {
    std::vector<PickedColor> colors = recentColors();
    const auto near = std::find_if(colors.begin(), colors.end(),
                                   [&](const PickedColor& kept) { return kept.isNear(color); });
    if (near != colors.end()) colors.erase(near);
    colors.insert(colors.begin(), color);
    if (colors.size() > maxHistoryCount) colors.resize(maxHistoryCount);
    set_recentColors(std::move(colors));
    save();
}

void ColorHistoryService::load() {
    const auto data = userDefaults_->data(historyKey);
    if (!data) return;
    try {
        set_recentColors(decodeJsonText<std::vector<PickedColor>>(*data));
    } catch (const JsonError& error) {
        logLine(QStringLiteral("ColorHistoryService: Failed to load history - ") +
                error.errorDescription());
    }
}

void ColorHistoryService::save() {
    try {
        userDefaults_->setData(historyKey, encodeJsonText(recentColors()));
    } catch (const JsonError& error) {
        logLine(QStringLiteral("ColorHistoryService: Failed to save history - ") +
                error.errorDescription());
    }
}

}  // namespace kestrio
