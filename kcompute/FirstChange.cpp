#include "kcompute/FirstChange.h"

namespace quarnel {

const RecoveryPoint* FirstValidPoint(const RecoveryPointList& points) {
    const RecoveryPoint* first = nullptr;
    for (const RecoveryPoint& point : points)
        if (IsValidPoint(point) && (first == nullptr || point.timeSec < first->timeSec))
            first = &point;
    return first;
}

} // namespace quarnel
