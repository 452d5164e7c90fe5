#include "text/detection/VisualLine.h"

#include <algorithm>

namespace kestrio {

namespace {

// In heights of the line, about two of which are three to four letters.
constexpr double greatestJoint = 3.0;    // boxes further apart say nothing together
constexpr double greatestSeam = 1.2;     // a split word has at most this between its halves
constexpr double greatestSpace = 1.6;    // spaces wider than this divide fields
constexpr double smallestOverlap = 0.6;  // of the lower box's height

struct Box {
    int index;
    QRectF rect;
    bool isTaken = false;
};

double lineHeight(const Box& a, const Box& b) {
    return std::max(1.0, std::min(a.rect.height(), b.rect.height()));
}

bool isBeside(const Box& left, const Box& right) {
    const double overlap = std::min(left.rect.bottom(), right.rect.bottom()) -
                           std::max(left.rect.top(), right.rect.top());
    const double height = lineHeight(left, right);
    if (overlap < smallestOverlap * height) return false;
    const double gap = right.rect.left() - left.rect.right();
    // Boxes of a split word may overlap a little, boxes one above the other overlap as a whole.
    return gap > -height && gap < greatestJoint * height &&
           right.rect.center().x() > left.rect.center().x();
}

// The nearest box to the right that nobody has yet.
Box* follower(std::vector<Box>& boxes, const Box& of) {
    Box* nearest = nullptr;
    for (Box& box : boxes) {
        if (box.isTaken || !isBeside(of, box)) continue;
        if (!nearest || box.rect.left() < nearest->rect.left()) nearest = &box;
    }
    return nearest;
}

Gap gapOf(const OCRResult& box, int place, double height) {
    if (!box.text[place].isSpace()) return Gap::none;
    const auto& line = box.recognizedText;
    if (!line || place >= int(line->characters.size())) return Gap::narrow;
    return line->characters[size_t(place)].width() > greatestSpace * height ? Gap::wide
                                                                            : Gap::narrow;
}

void append(VisualLine& line, const OCRResult& box, const Box& placed) {
    for (int place = 0; place < box.text.size(); ++place) {
        line.text += box.text[place];
        line.units.push_back({placed.index, place, gapOf(box, place, placed.rect.height())});
    }
}

}  // namespace

QRectF pixelRect(const OCRResult& box, QSize picture) {
    return box.recognizedText ? box.recognizedText->rect
                              : pixelsFromNormalized(box.boundingBox, picture);
}

std::vector<VisualLine> visualLines(const std::vector<OCRResult>& results, QSize picture) {
    std::vector<Box> boxes;
    for (const OCRResult& result : results)
        boxes.push_back({int(boxes.size()), pixelRect(result, picture)});
    // A line begins with a box that follows no other one.
    std::vector<Box*> starts;
    for (Box& box : boxes) {
        const bool follows = std::ranges::any_of(boxes, [&box](const Box& other) {
            return other.index != box.index && isBeside(other, box);
        });
        if (!follows) starts.push_back(&box);
    }
    for (Box& box : boxes)
        starts.push_back(&box);
    std::vector<std::pair<int, VisualLine>> lines;
    for (Box* box : starts) {
        if (box->isTaken) continue;
        VisualLine line;
        int first = box->index;
        while (box) {
            box->isTaken = true;
            first = std::min(first, box->index);
            append(line, results[size_t(box->index)], *box);
            Box* const next = follower(boxes, *box);
            if (next) {
                const double height = lineHeight(*box, *next);
                const double width = next->rect.left() - box->rect.right();
                if (width < greatestSeam * height) line.seams.push_back(int(line.units.size()));
                line.text += u' ';
                line.units.push_back(
                    {-1, 0, width > greatestSpace * height ? Gap::wide : Gap::narrow});
            }
            box = next;
        }
        lines.emplace_back(first, std::move(line));
    }
    std::ranges::stable_sort(lines, {}, &std::pair<int, VisualLine>::first);
    std::vector<VisualLine> sorted;
    for (auto& [first, line] : lines)
        sorted.push_back(std::move(line));
    return sorted;
}

}  // namespace kestrio
