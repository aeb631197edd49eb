#include "kcompute/FirstChange.h"

#include <cmath>

namespace quarnel {

bool IsValidPoint(const RecoveryPoint& point) {
    return point.yCm > 0 && std::isfinite(point.yCm);
}

const RecoveryPoint* FirstValidPoint(const RecoveryPointList& points) {
    const RecoveryPoint* first = nullptr;
    for (const RecoveryPoint& point : points)
        if (IsValidPoint(point) && (first == nullptr || point.timeSec < first->timeSec))
            first = &point;
    return first;
}

} // namespace quarnel
