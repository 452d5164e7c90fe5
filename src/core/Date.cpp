#include "core/Date.h"

#include <cmath>

namespace kestrio {

namespace {
// 2001-01-01 00:00:00 UTC on the Unix clock, in milliseconds.
constexpr double referenceMilliseconds = 978307200.0 * 1000.0;
}  // namespace

Date Date::now() {
    return fromDateTime(QDateTime::currentDateTimeUtc());
}

Date Date::fromDateTime(const QDateTime& moment) {
    return {(static_cast<double>(moment.toMSecsSinceEpoch()) - referenceMilliseconds) / 1000.0};
}

QDateTime Date::toDateTime() const {
    const double milliseconds = sinceReference * 1000.0 + referenceMilliseconds;
    return QDateTime::fromMSecsSinceEpoch(std::llround(milliseconds), Qt::UTC);
}

}  // namespace kestrio
