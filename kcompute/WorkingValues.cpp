#include "kcompute/WorkingValues.h"

#include <utility>

namespace quarnel {

void ClearComputedValues(WorkingValues& working) {
    SharedPoints points = std::move(working.recovery.RecoveryPoints);
    std::vector<Mark> marks = std::move(working.marks);
    working = WorkingValues();
    points.Renew(points->capacity());
    marks.clear();
    working.recovery.RecoveryPoints = std::move(points);
    working.marks = std::move(marks);
}

} // namespace quarnel
