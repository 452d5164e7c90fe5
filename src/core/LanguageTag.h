#pragma once

#include <QString>

namespace kestrio {

/// The language of a BCP 47 identifier, without script, region and variant: "zh" of "zh-Hant".
inline QString mainLanguage(const QString& identifier) {
    return identifier.section(u'-', 0, 0).toLower();
}

}  // namespace kestrio
