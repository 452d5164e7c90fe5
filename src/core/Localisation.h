#pragma once

#include <QCoreApplication>
#include <QString>

namespace kestrio {

/// The user's language for an English text, which is also the key of the translation table.
inline QString localised(const char* english) {
    return QCoreApplication::translate("Kestrio", english);
}

}  // namespace kestrio
