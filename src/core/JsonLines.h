#pragma once

#include "core/Json.h"

#include <optional>

namespace kestrio {

/// One document of a conversation in which each is a line, with its end. Strings in it cannot break
/// the line, since JSON escapes control characters.
template <typename Message>
QByteArray messageLine(const Message& message) {
    return encodeJsonText(message) + '\n';
}

/// Cuts what arrives from the other side of such a conversation into lines, whatever it arrives
/// through. The other side may send anything, so a line has a limit.
class LineReader {
  public:
    /// `longest` line in bytes, its end not counted.
    explicit LineReader(qsizetype longest) : longest_(longest) {}

    /// Takes bytes as they arrive, in pieces of any size.
    void append(const QByteArray& bytes);
    /// The next line without its end; nothing as long as it has not arrived whole.
    std::optional<QByteArray> takeLine();
    /// Whether takeLine() has come to a line that is longer than allowed. Where the next one begins
    /// is not worth knowing then: nothing is kept and no line is given any more.
    bool isBroken() const { return isBroken_; }

  private:
    qsizetype longest_;
    QByteArray waiting_;
    qsizetype searched_ = 0;  ///< bytes of `waiting_` that hold no end of a line
    bool isBroken_ = false;
};

}  // namespace kestrio
