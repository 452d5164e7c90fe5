#pragma once

#include <QDateTime>

namespace kestrio {

/// A moment, as seconds since 2001-01-01 00:00:00 UTC, which is also how JSON holds it. A double,
/// not a QDateTime, so that a stored moment comes back to the last bit.
struct Date {
    double sinceReference = 0;

    static Date now();
    static Date fromDateTime(const QDateTime& moment);
    /// Rounded to milliseconds, in UTC.
    QDateTime toDateTime() const;

    bool operator==(const Date&) const = default;
};

}  // namespace kestrio
