#pragma once

#include "loggerfiles/TimeTexts.h"

namespace quarnel {

/// In which order dates like 03/05/2024 are read.
struct DateDecision {
    bool bothArePossible = false;   ///< as many dates are valid one way as the other
    std::optional<DateOrder> order; ///< unset: the rows do not tell
    bool secondsAgree = false;      ///< the times since the first row are the same both ways
    bool someAreInvalid = false;    ///< some rows are no dates in `order` (month/day when unset)
};

/// Tells the order from open times: the only one that gives valid dates (or more of them); else
/// month/day where the times since the first row agree; else the one whose times rise; else the one
/// with fewer different steps. `chosen` is the user's word and ends it.
DateDecision DecideDateOrder(const std::vector<std::int64_t>& openTimes,
                             std::optional<DateOrder> chosen);

} // namespace quarnel
