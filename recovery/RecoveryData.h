#pragma once

#include "project/CellText.h"

#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quarnel {

/// One checked reading.
struct RecoveryPoint {
    CellText timeText;  ///< as typed, trimmed
    double time = 0;    ///< entered time unit
    double timeSec = 0; ///< s
    CellText levelText; ///< as typed, trimmed
    double level = 0;   ///< entered level unit
    double y = 0;       ///< change in head Y, entered level unit
    double yCm = 0;     ///< Y in cm
    double lnYCm = 0;   ///< natural logarithm of yCm; 0 where yCm <= 0

    /// Whether the point can take part in a fit.
    bool YIsValid() const { return y > 0; }
    /// Base-10 logarithm of y, for the plot; 0 where y <= 0.
    double Log10Y() const { return YIsValid() ? std::log(y) / std::log(10.0) : 0; }
};

using RecoveryPointList = std::vector<RecoveryPoint>;

/// The bounds of the plot: times in the entered time unit, Y in the entered level unit; the Y axis
/// runs between powers of ten.
struct PlotBounds {
    double PlotMaxTime = 0;
    double PlotMinY = 0;
    double PlotMaxY = 0;
    double PlotMaxYcm = 0;
    double PlotYAxisMin = 0;
    double PlotYAxisMax = 0;
};

/// The checked points (element 0 is point 1), shared by whoever copies the list and never changed
/// while it is shared: a check that makes them anew leaves the others' list as it is. So a
/// computation keeps the points it was made from without a copy of a million of them.
class SharedPoints {
public:
    const RecoveryPointList& operator*() const { return *list_; }
    const RecoveryPointList* operator->() const { return list_.get(); }

    /// An empty list of this one's own with room for `capacity` points. The memory of the last list
    /// serves again unless someone else holds it: for a million points getting it anew costs more
    /// than their check.
    RecoveryPointList& Renew(std::size_t capacity);
    /// The points for changing, in a list of this one's own.
    RecoveryPointList& Change();

private:
    std::shared_ptr<RecoveryPointList> list_ = std::make_shared<RecoveryPointList>();
};

/// The readings as their last check left them: what they are, in which units, and the points.
struct RecoveryData {
    int dataType = 0;
    int slugTestType = 0;
    int timeUnit = 0;
    int levelUnit = 0;
    std::string preSlugText; ///< trimmed; empty for changes in head
    double preSlug = 0;      ///< entered level unit
    SharedPoints RecoveryPoints;
    int ValidYCount = 0; ///< points with Y > 0
    PlotBounds bounds;
};

} // namespace quarnel
