#include "annotation/editing/HitTest.h"

#include "annotation/model/Geometry.h"

namespace kestrio {

bool isHit(const AnyAnnotation& annotation, const QPointF& point) {
    constexpr double reach = 10.0;
    const QPointF unturned = annotation.visit([&](const auto& record) {
        if constexpr (requires { record.rotation, record.bounds; }) {
            if (record.rotation != 0) {
                return rotated(point, record.bounds.center(), -record.rotation);
            }
        }
        return point;
    });
    return contains(grown(annotation.bounds(), reach), unturned);
}

}  // namespace kestrio
