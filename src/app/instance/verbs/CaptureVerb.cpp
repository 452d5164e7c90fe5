#include "app/instance/verbs/CaptureVerb.h"

#include "app/instance/verbs/PathCheck.h"
#include "core/Localisation.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

constexpr std::size_t regionNumbers = 4;
// Points; no desktop reaches so far.
constexpr double farthestPoint = 100000;

bool isRegion(const std::vector<double>& numbers) {
    const bool isInRange = std::ranges::all_of(numbers, [](double number) {
        return std::isfinite(number) && std::abs(number) <= farthestPoint;
    });
    return isInRange && numbers.size() == regionNumbers && numbers[2] > 0 && numbers[3] > 0;
}

}  // namespace

bool isDelay(int seconds) {
    return seconds >= 0 && seconds <= longestDelay;
}

std::vector<double> regionFrom(const QString& text) {
    std::vector<double> numbers;
    for (const QString& part : text.split(u',')) {
        bool isNumber = false;
        numbers.push_back(part.trimmed().toDouble(&isNumber));
        if (!isNumber) return {};
    }
    return isRegion(numbers) ? numbers : std::vector<double>();
}

QString faultOf(const CaptureVerb& verb) {
    if (!isDelay(verb.delay)) {
        return Kestrio::tr("the delay must be 0 to %1 seconds").arg(longestDelay);
    }
    if (verb.kind != CaptureKind::scrolling && (verb.isAutomatic || !verb.region.empty())) {
        return Kestrio::tr("only scrolling captures scroll by themselves or take a region");
    }
    if (!verb.region.empty() && !isRegion(verb.region)) {
        return Kestrio::tr("a region is its left, top, width and height in points");
    }
    return verb.output.isEmpty() ? QString() : faultOfOutputName(verb.output);
}

CaptureRequest CaptureVerb::captureRequest() const {
    CaptureRequest request{kind, delay, action, output};
    if (isAutomatic) request.scrolling.mode = ScrollingCaptureMode::automatic;
    if (!region.empty())
        request.scrolling.region = QRectF(region[0], region[1], region[2], region[3]);
    return request;
}

}  // namespace kestrio
