#include "loggerfiles/DateOrders.h"

#include <algorithm>

namespace quarnel {

namespace {

/// The times read in one order; those of no date are left out.
std::vector<std::int64_t> TimesInOrder(const std::vector<std::int64_t>& openTimes,
                                       DateOrder order) {
    std::vector<std::int64_t> times;
    times.reserve(openTimes.size());
    for (const std::int64_t open : openTimes)
        if (const std::optional<std::int64_t> time = TimeOfOpen(open, order))
            times.push_back(*time);
    return times;
}

bool SecondsAgree(const std::vector<std::int64_t>& a, const std::vector<std::int64_t>& b) {
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] - a.front() != b[i] - b.front())
            return false;
    return true;
}

/// How many different steps lie between the times, which it overwrites.
std::size_t DifferentSteps(std::vector<std::int64_t>& times) {
    for (std::size_t i = 0; i + 1 < times.size(); ++i)
        times[i] = times[i + 1] - times[i];
    if (!times.empty())
        times.pop_back();
    std::sort(times.begin(), times.end());
    return static_cast<std::size_t>(std::unique(times.begin(), times.end()) - times.begin());
}

std::optional<DateOrder> FirstIf(bool monthDay, bool dayMonth) {
    if (monthDay == dayMonth)
        return std::nullopt;
    return monthDay ? DateOrder::MonthDay : DateOrder::DayMonth;
}

} // namespace

DateDecision DecideDateOrder(const std::vector<std::int64_t>& openTimes,
                             std::optional<DateOrder> chosen) {
    std::vector<std::int64_t> monthDay = TimesInOrder(openTimes, DateOrder::MonthDay);
    std::vector<std::int64_t> dayMonth = TimesInOrder(openTimes, DateOrder::DayMonth);
    DateDecision decision;
    decision.bothArePossible =
        monthDay.size() == openTimes.size() && dayMonth.size() == openTimes.size();
    decision.order = chosen;
    if (!chosen && !decision.bothArePossible) {
        // A damaged date alone must not turn the others around.
        decision.order =
            FirstIf(monthDay.size() > dayMonth.size(), dayMonth.size() > monthDay.size());
        decision.bothArePossible = !decision.order;
    } else if (!chosen) {
        decision.secondsAgree = SecondsAgree(monthDay, dayMonth);
        decision.order = decision.secondsAgree
                             ? DateOrder::MonthDay
                             : FirstIf(std::is_sorted(monthDay.begin(), monthDay.end()),
                                       std::is_sorted(dayMonth.begin(), dayMonth.end()));
        if (!decision.order) {
            const std::size_t monthDaySteps = DifferentSteps(monthDay);
            const std::size_t dayMonthSteps = DifferentSteps(dayMonth);
            decision.order = FirstIf(monthDaySteps < dayMonthSteps, dayMonthSteps < monthDaySteps);
        }
        return decision;
    }
    const bool isDayMonth = decision.order == DateOrder::DayMonth;
    decision.someAreInvalid = (isDayMonth ? dayMonth : monthDay).size() < openTimes.size();
    return decision;
}

} // namespace quarnel
