#pragma once

#include "core/CodableColor.h"

#include <optional>

namespace kestrio {

/// What a typed text means: a colour at alpha 1, or a message that says what is wrong, or neither
/// while nothing is typed.
struct ColorInputResult {
    std::optional<CodableColor> color;
    QString message;
};

/// Three or six hex digits, with or without "#".
ColorInputResult readHexInput(QStringView text);

/// Three whole numbers from 0 to 255; nothing where one of them is none.
std::optional<CodableColor> readRgbInput(QStringView red, QStringView green, QStringView blue);

}  // namespace kestrio
