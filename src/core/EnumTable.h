#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "core/Localisation.h"

namespace kestrio {

/// One case of an enumeration: its raw string, which files hold, and the English name shown to
/// users (null where none is).
template <typename E>
struct EnumRow {
    E value;
    const char* raw;
    const char* name = nullptr;
};

/// The one table of an enumeration, used both ways, in display order. An enumeration takes part by
/// a function `constexpr const auto& enumTable(E)` beside it.
template <typename E, std::size_t count>
using EnumTable = std::array<EnumRow<E>, count>;

template <typename E>
concept TabledEnum = requires(E value) {
    enumTable(value).size();
};

/// The row of a case. A value that is no case of its enumeration, or one without a row, is a fault
/// of the program and ends it.
template <TabledEnum E>
constexpr const EnumRow<E>& enumRow(E value) {
    const auto& table = enumTable(E{});
    for (const EnumRow<E>& row : table) {
        if (row.value == value) return row;
    }
    std::abort();
}

template <TabledEnum E>
QString rawString(E value) {
    return QString::fromLatin1(enumRow(value).raw);
}

/// The name shown to users, in their language.
template <TabledEnum E>
QString displayName(E value) {
    return Kestrio::tr(enumRow(value).name);
}

/// The case of an exact raw string, or nothing.
template <TabledEnum E>
std::optional<E> fromRawString(std::string_view raw) {
    for (const EnumRow<E>& row : enumTable(E{})) {
        if (raw == row.raw) return row.value;
    }
    return std::nullopt;
}

/// All raw strings in table order, for messages that list what is known.
template <TabledEnum E>
QStringList rawStrings() {
    QStringList list;
    for (const EnumRow<E>& row : enumTable(E{}))
        list << QString::fromLatin1(row.raw);
    return list;
}

}  // namespace kestrio
