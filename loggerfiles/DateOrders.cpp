#include "loggerfiles/DateOrders.h"

#include <algorithm>
#include <limits>

namespace quarnel {

namespace {

/// What one look at all times tells of an order.
struct OrderFindings {
    std::size_t dates = 0; ///< how many are dates in it
    bool rises = true;
};

/// What it tells of both.
struct BothFindings {
    OrderFindings monthDay, dayMonth;
    bool secondsAgree = true; ///< where all are dates in both
};

BothFindings LookAt(const std::vector<std::int64_t>& openTimes) {
    struct Walk {
        OpenTimeReader reader;
        OrderFindings& findings;
        std::int64_t time = 0, before = std::numeric_limits<std::int64_t>::min();

        void Step(std::int64_t open) {
            if (!reader.Read(open, time))
                return;
            ++findings.dates;
            findings.rises = findings.rises && time >= before;
            before = time;
        }
    };
    BothFindings both;
    Walk monthDay{OpenTimeReader(DateOrder::MonthDay), both.monthDay};
    Walk dayMonth{OpenTimeReader(DateOrder::DayMonth), both.dayMonth};
    std::int64_t firstDifference = 0;
    for (std::size_t i = 0; i < openTimes.size(); ++i) {
        monthDay.Step(openTimes[i]);
        dayMonth.Step(openTimes[i]);
        const std::int64_t difference = monthDay.time - dayMonth.time;
        if (i == 0)
            firstDifference = difference;
        both.secondsAgree = both.secondsAgree && difference == firstDifference;
    }
    return both;
}

/// How many different steps lie between the times, all of them dates in `order`.
std::size_t DifferentSteps(const std::vector<std::int64_t>& openTimes, DateOrder order) {
    std::vector<std::int64_t> steps;
    steps.reserve(openTimes.size());
    OpenTimeReader reader(order);
    std::int64_t before = 0;
    std::int64_t time = 0;
    for (std::size_t i = 0; i < openTimes.size(); ++i) {
        reader.Read(openTimes[i], time);
        if (i > 0)
            steps.push_back(time - before);
        before = time;
    }
    std::sort(steps.begin(), steps.end());
    return static_cast<std::size_t>(std::unique(steps.begin(), steps.end()) - steps.begin());
}

std::optional<DateOrder> FirstIf(bool monthDay, bool dayMonth) {
    if (monthDay == dayMonth)
        return std::nullopt;
    return monthDay ? DateOrder::MonthDay : DateOrder::DayMonth;
}

/// The order of dates that are all valid both ways.
std::optional<DateOrder> OrderByRows(const std::vector<std::int64_t>& openTimes,
                                     const BothFindings& both) {
    if (both.secondsAgree)
        return DateOrder::MonthDay;
    if (both.monthDay.rises != both.dayMonth.rises)
        return FirstIf(both.monthDay.rises, both.dayMonth.rises);
    const std::size_t monthDaySteps = DifferentSteps(openTimes, DateOrder::MonthDay);
    const std::size_t dayMonthSteps = DifferentSteps(openTimes, DateOrder::DayMonth);
    return FirstIf(monthDaySteps < dayMonthSteps, dayMonthSteps < monthDaySteps);
}

} // namespace

DateDecision DecideDateOrder(const std::vector<std::int64_t>& openTimes,
                             std::optional<DateOrder> chosen) {
    const BothFindings both = LookAt(openTimes);
    const std::size_t monthDay = both.monthDay.dates;
    const std::size_t dayMonth = both.dayMonth.dates;
    DateDecision decision;
    // Where a damaged date makes both impossible, it must not turn the others around.
    decision.bothArePossible = monthDay == dayMonth;
    const bool allAreDates = decision.bothArePossible && monthDay == openTimes.size();
    if (chosen)
        decision.order = chosen;
    else if (allAreDates)
        decision.order = OrderByRows(openTimes, both);
    else
        decision.order = FirstIf(monthDay > dayMonth, dayMonth > monthDay);
    decision.secondsAgree = !chosen && allAreDates && both.secondsAgree;
    const bool isDayMonth = decision.order == DateOrder::DayMonth;
    decision.someAreInvalid = (isDayMonth ? dayMonth : monthDay) < openTimes.size();
    return decision;
}

} // namespace quarnel
