#include "loggerfiles/PreviewCurve.h"

#include <algorithm>
#include <cmath>

namespace quarnel {

std::vector<CurveColumn> CurveOf(std::span<const std::int64_t> times,
                                 std::span<const double> readings, double from, double to,
                                 int columns) {
    const double scale = columns / (to - from);
    std::vector<CurveColumn> curve;
    double open = NAN; // the column that is being filled
    for (std::size_t row = 0; row < times.size(); ++row) {
        const double exact = (static_cast<double>(times[row]) - from) * scale;
        // All that lies left of the plot is one column, and so is all that lies right of it: of
        // those only the reading next to the plot counts.
        const double column = std::clamp(std::floor(exact), -1.0, static_cast<double>(columns) + 1);
        const double reading = readings[row];
        const bool isLeft = column < 0;
        if (column != open || isLeft) {
            if (column == open)
                curve.pop_back();
            curve.push_back({exact, reading, reading, reading, reading});
            open = column;
        } else if (column <= columns) {
            CurveColumn& filled = curve.back();
            filled.least = std::min(filled.least, reading);
            filled.greatest = std::max(filled.greatest, reading);
            filled.last = reading;
        }
    }
    return curve;
}

std::size_t NearestRow(std::span<const std::int64_t> times, double time) {
    const auto after =
        std::lower_bound(times.begin(), times.end(), time, [](std::int64_t at, double wanted) {
            return static_cast<double>(at) < wanted;
        });
    if (after == times.begin())
        return 0;
    const auto before = *(after - 1);
    if (after != times.end() &&
        static_cast<double>(*after) - time < time - static_cast<double>(before))
        return static_cast<std::size_t>(after - times.begin());
    // The first of several rows at one time.
    return static_cast<std::size_t>(std::lower_bound(times.begin(), times.end(), before) -
                                    times.begin());
}

} // namespace quarnel
