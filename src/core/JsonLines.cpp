#include "core/JsonLines.h"

namespace kestrio {

void LineReader::append(const QByteArray& bytes) {
    if (!isBroken_) waiting_ += bytes;
}

std::optional<QByteArray> LineReader::takeLine() {
    const qsizetype end = waiting_.indexOf('\n', searched_);
    const qsizetype length = end < 0 ? waiting_.size() : end;
    if (length > longest_) {
        isBroken_ = true;
        waiting_ = QByteArray();
        searched_ = 0;
        return std::nullopt;
    }
    if (end < 0) {
        searched_ = length;
        return std::nullopt;
    }
    QByteArray line = waiting_.left(end);
    waiting_.remove(0, end + 1);
    searched_ = 0;
    return line;
}

}  // namespace kestrio
