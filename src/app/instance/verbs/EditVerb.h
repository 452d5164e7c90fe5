#pragma once

#include "core/Json.h"

namespace kestrio {

/// The most pixels a point that a picture may have.
inline constexpr double largestDensity = 16;
bool isDensity(double density);

/// Opens the editor.
struct EditVerb {
    QString file;        ///< absolute; the clipboard's picture where empty
    double density = 1;  ///< pixels a point of the picture

    static constexpr auto jsonFields() {
        using V = EditVerb;
        return std::tuple(missableField("file", &V::file), missableField("density", &V::density));
    }
};

/// Why it makes no sense, for users; empty where nothing is wrong. Looks at no disk.
QString faultOf(const EditVerb& verb);

}  // namespace kestrio
