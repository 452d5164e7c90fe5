#pragma once

#include "text/patterns/RegularExpression.h"

namespace kestrio {

/// A text of which every UTF-16 unit knows the place of the text it was made of.
struct MappedText {
    QString text;
    std::vector<int> origins;  ///< as many as units; -1 for one that was put in

    void append(QChar unit, int origin) {
        text += unit;
        origins.push_back(origin);
    }

    /// The smallest part of the original text that has all of a part of this one; empty where that
    /// was put in.
    TextRange originOf(const TextRange& range) const {
        int first = -1;
        int last = -1;
        for (int i = range.start; i < range.end(); ++i) {
            const int origin = origins[size_t(i)];
            if (origin < 0) continue;
            if (first < 0) first = origin;
            last = origin;
        }
        return first < 0 ? TextRange{} : TextRange{first, last - first + 1};
    }
};

/// A text as it is.
inline MappedText mapped(const QString& text) {
    MappedText same;
    for (int i = 0; i < text.size(); ++i)
        same.append(text[i], i);
    return same;
}

}  // namespace kestrio
