#pragma once

#include "core/EnumTable.h"

#include <QVariantMap>

namespace kestrio {

/// A row {id, name} of a list to choose from.
template <typename E>
QVariantMap choiceRow(const EnumRow<E>& row) {
    return {{QStringLiteral("id"), QString::fromLatin1(row.raw)},
            {QStringLiteral("name"), displayName(row.value)}};
}

template <typename Table>
QVariantList choiceRows(const Table& table) {
    QVariantList list;
    for (const auto& row : table)
        list << choiceRow(row);
    return list;
}

}  // namespace kestrio
