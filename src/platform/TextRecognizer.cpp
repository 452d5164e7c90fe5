#include "platform/TextRecognizer.h"

namespace kestrio {

QRectF RecognizedLine::rectOf(int start, int length) const {
    if (length <= 0) return {};
    if (characters.empty()) return rect;
    QRectF covered;
    const int end = std::min(start + length, static_cast<int>(characters.size()));
    for (int index = std::max(start, 0); index < end; ++index)
        covered |= characters[static_cast<size_t>(index)];
    return covered;
}

}  // namespace kestrio
