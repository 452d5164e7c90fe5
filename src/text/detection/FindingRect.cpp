#include "text/detection/FindingRect.h"

#include <algorithm>
#include <map>

namespace kestrio {

namespace {

// In heights of the line. Recognisers place the edges of characters within a fifth of that, and
// smoothed edges reach a pixel further; the space before the next word is a quarter and more.
constexpr double sideMargin = 0.2;
constexpr double edgeMargin = 0.1;
constexpr double smallestMargin = 1.0;  // pixels

QRectF coveredCharacters(const RecognizedLine& line, const TextRange& range) {
    const QRectF rect = line.rectOf(range.start, range.length);
    const double side = std::max(smallestMargin, sideMargin * line.rect.height());
    const double edge = std::max(smallestMargin, edgeMargin * line.rect.height());
    return rect.adjusted(-side, -edge, side, edge);
}

// By proportion, as if all characters were equally wide. A short part of a long line may be
// furthest from where it is guessed and gets the most slack.
QRectF estimated(const QRectF& line, const TextRange& range, int count) {
    const double share = double(range.length) / count;
    if (share > 0.5) return line;
    const double slack = (1 - share) * 0.08 + 0.08;
    const double start = std::max(double(range.start) / count - slack, 0.0);
    const double end = std::min(double(range.end()) / count + slack, 1.0);
    return {line.left() + line.width() * start, line.top(), line.width() * (end - start),
            line.height()};
}

QRectF coveredPart(const OCRResult& box, const TextRange& range, QSize picture) {
    const auto& line = box.recognizedText;
    if (line && int(line->characters.size()) == box.text.size())
        return coveredCharacters(*line, range);
    return estimated(pixelRect(box, picture), range, std::max(1, int(box.text.size())));
}

}  // namespace

FindingPlace placeOf(const TextRange& range, const VisualLine& line,
                     const std::vector<OCRResult>& boxes, QSize picture) {
    std::map<int, TextRange> parts;  // by box
    for (int i = range.start; i < range.end(); ++i) {
        const VisualLine::Unit& unit = line.units[size_t(i)];
        if (unit.box < 0) continue;
        auto& part = parts.try_emplace(unit.box, TextRange{unit.place, 0}).first->second;
        part.length = unit.place - part.start + 1;
    }
    FindingPlace place{{}, 1};
    for (const auto& [box, part] : parts) {
        place.rect |= coveredPart(boxes[size_t(box)], part, picture);
        place.confidence = std::min(place.confidence, boxes[size_t(box)].confidence);
    }
    place.rect &= QRectF(QPointF(), picture);
    return place;
}

}  // namespace kestrio
