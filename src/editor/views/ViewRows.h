#pragma once

#include "core/EnumTable.h"
#include "core/Localisation.h"

#include <QVariantMap>

// Values as QML pickers take them: rows {id, name}.

namespace kestrio {

inline QVariantMap viewRow(const QString& id, const QString& name) {
    return {{QStringLiteral("id"), id}, {QStringLiteral("name"), name}};
}

template <typename E>
QString rawName(E value) {
    return QString::fromLatin1(enumRow(value).raw);
}

template <typename E>
std::optional<E> namedValue(const QString& raw) {
    return fromRawString<E>(raw.toStdString());
}

/// Every case of an enumeration, in the order of its table.
template <typename E>
QVariantList viewRows() {
    QVariantList rows;
    for (const auto& each : enumTable(E()))
        rows << viewRow(QString::fromLatin1(each.raw), Kestrio::tr(each.name));
    return rows;
}

/// Every entry of a built-in list of {id, name}.
template <typename List>
QVariantList viewRows(const List& list) {
    QVariantList rows;
    for (const auto& each : list)
        rows << viewRow(each.id, Kestrio::tr(each.name.toUtf8().constData()));
    return rows;
}

}  // namespace kestrio
