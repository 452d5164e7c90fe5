#include "annotation/model/TextStyle.h"

namespace kestrio {

Qt::Alignment qtAlignment(CodableTextAlignment alignment) {
    constexpr Qt::AlignmentFlag flags[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    return flags[static_cast<int>(alignment)];
}

// Font weights run from 100 to 900 in steps of 100, in the order of the enumeration.
QFont::Weight fontWeight(CodableFontWeight weight) {
    return static_cast<QFont::Weight>((static_cast<int>(weight) + 1) * 100);
}

}  // namespace kestrio
