#include "annotation/editing/HitTest.h"

#include "annotation/model/Geometry.h"

#include <cmath>

namespace kestrio {

namespace {

constexpr double reach = 10.0;

struct Turn {
    QPointF center;
    double degrees;
};

std::optional<Turn> turnOf(const AnyAnnotation& annotation) {
    return annotation.visit([](const auto& record) -> std::optional<Turn> {
        if constexpr (requires { record.rotation, record.bounds; }) {
            if (record.rotation != 0) return Turn{record.bounds.center(), record.rotation};
        }
        return std::nullopt;
    });
}

}  // namespace

bool isHit(const AnyAnnotation& annotation, const QPointF& point) {
    const auto turn = turnOf(annotation);
    const QPointF unturned = turn ? rotated(point, turn->center, -turn->degrees) : point;
    return contains(grown(annotation.bounds(), reach), unturned);
}

QRectF hitBox(const AnyAnnotation& annotation) {
    const QRectF upright = grown(annotation.bounds(), reach);
    const auto turn = turnOf(annotation);
    if (!turn) return upright;
    // In whichever direction it is turned, with some room for what turning rounds.
    const double radius = std::hypot(upright.width(), upright.height()) / 2;
    const double rounding =
        1e-9 * (radius + std::abs(turn->center.x()) + std::abs(turn->center.y()));
    return squareAround(turn->center, 2 * (radius + rounding));
}

}  // namespace kestrio
