#include "loggerfiles/Thinning.h"

#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

double Seconds(std::int64_t microseconds) {
    return static_cast<double>(microseconds) / 1e6;
}

void Keep(std::size_t row, std::vector<std::size_t>& rows) {
    if (rows.empty() || rows.back() < row)
        rows.push_back(row);
}

} // namespace

std::vector<std::size_t> ThinnedRows(std::span<const std::int64_t> times, int rowsPerDecade) {
    constexpr double Slack = 1e-9; // s
    std::vector<std::size_t> rows;
    if (times.empty())
        return rows;
    Keep(0, rows);
    const auto firstAfterZero = std::upper_bound(times.begin(), times.end(), std::int64_t{0});
    auto row = firstAfterZero;
    for (int k = 0; row != times.end(); ++k) {
        const double least =
            Seconds(*firstAfterZero) * std::pow(10.0, static_cast<double>(k) / rowsPerDecade) -
            Slack;
        // A gap of hours between two rows takes no more steps than decades have rows.
        row = std::lower_bound(row, times.end(), least, [](std::int64_t time, double limit) {
            return Seconds(time) < limit;
        });
        if (row != times.end())
            Keep(static_cast<std::size_t>(row - times.begin()), rows);
    }
    Keep(times.size() - 1, rows);
    return rows;
}

} // namespace quarnel
