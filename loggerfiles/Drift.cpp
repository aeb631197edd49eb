#include "loggerfiles/Drift.h"

#include "loggerfiles/Medians.h"
#include "loggerfiles/Rounding.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace quarnel {

namespace {

struct Sample {
    std::int64_t time = 0;
    double millionths = 0;
};

/// All rows, or 500 of them evenly taken, the first and the last among them.
std::vector<Sample> TakeSamples(std::span<const std::int64_t> times,
                                std::span<const double> readings) {
    const std::size_t count = std::min(times.size(), MostTrendRows);
    std::vector<Sample> samples(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t row =
            count == times.size() ? i : i * (times.size() - 1) / (MostTrendRows - 1);
        samples[i] = {times[row], Millionths(readings[row])};
    }
    return samples;
}

} // namespace

std::optional<double> TheilSenMillionths(std::span<const std::int64_t> times,
                                         std::span<const double> readings, std::int64_t duration) {
    const std::vector<Sample> samples = TakeSamples(times, readings);
    const auto scale = static_cast<double>(duration);
    std::vector<double> changes;
    changes.reserve(samples.size() * samples.size() / 2);
    for (std::size_t i = 0; i < samples.size(); ++i)
        for (std::size_t k = i + 1; k < samples.size(); ++k)
            // The product is of whole numbers, so that only the division rounds.
            if (samples[k].time != samples[i].time)
                changes.push_back((samples[k].millionths - samples[i].millionths) * scale /
                                  static_cast<double>(samples[k].time - samples[i].time));
    if (changes.empty())
        return std::nullopt;
    return MedianOf(changes);
}

bool DriftMatters(double changeMillionths, double firstY) {
    constexpr double SharesOfFirstY = 20; // 5 %
    return std::fabs(changeMillionths) * SharesOfFirstY > std::fabs(Millionths(firstY));
}

} // namespace quarnel
