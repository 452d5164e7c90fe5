#pragma once

#include <QString>

namespace kestrio {

/// How long an expression of the user's own may be, in characters.
inline constexpr int greatestRegexLength = 256;

/// Whether an expression of the user's own is simple enough to be tried on every line that is read.
/// It says nothing of whether it compiles. Stricter than need be: "(?:ab)+" is refused like a
/// nested quantifier, since the "?" counts as one. It keeps the obvious mistakes out; what ends a
/// match in time is RegularExpression.
bool isSafeRegex(const QString& regex);

}  // namespace kestrio
