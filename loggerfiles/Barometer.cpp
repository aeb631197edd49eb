#include "loggerfiles/Barometer.h"

#include <cmath>
#include <cstddef>

namespace quarnel {

namespace {

/// A barometer's readings, looked at from one to the next that is a number.
class Walk {
public:
    Walk(std::span<const std::int64_t> times, std::span<const double> pressures)
        : times_(times)
        , pressures_(pressures)
        , at_(NextNumber(0))
        , next_(NextNumber(at_ + 1)) {}

    /// Goes on until the next reading is at or after `time`. False outside of the readings.
    bool GoTo(std::int64_t time) {
        if (at_ >= times_.size() || time < times_[at_])
            return false;
        while (time > times_[at_] && next_ < times_.size() && times_[next_] <= time)
            Step();
        return time == times_[at_] || next_ < times_.size();
    }

    double At(std::int64_t time) const {
        if (time == times_[at_])
            return pressures_[at_];
        const auto span = static_cast<double>(times_[next_] - times_[at_]);
        const double share = static_cast<double>(time - times_[at_]) / span;
        return pressures_[at_] + (pressures_[next_] - pressures_[at_]) * share;
    }

private:
    std::size_t NextNumber(std::size_t row) const {
        while (row < times_.size() && std::isnan(pressures_[row]))
            ++row;
        return row;
    }
    void Step() {
        at_ = next_;
        next_ = NextNumber(next_ + 1);
    }

    std::span<const std::int64_t> times_;
    std::span<const double> pressures_;
    std::size_t at_;
    std::size_t next_;
};

} // namespace

std::optional<std::vector<double>> PressureAt(std::span<const std::int64_t> times,
                                              std::span<const std::int64_t> barometerTimes,
                                              std::span<const double> pressures) {
    Walk walk(barometerTimes, pressures);
    std::vector<double> result;
    result.reserve(times.size());
    for (const std::int64_t time : times) {
        if (!walk.GoTo(time))
            return std::nullopt;
        result.push_back(walk.At(time));
    }
    return result;
}

} // namespace quarnel
