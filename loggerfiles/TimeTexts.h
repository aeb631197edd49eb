#pragma once

#include "loggerfiles/LoggerRecord.h"

#include <chrono>

namespace quarnel {

inline constexpr std::int64_t MicrosPerSecond = 1'000'000;
inline constexpr std::int64_t MicrosPerDay = 86'400 * MicrosPerSecond;

/// The forms in which files write times. All times of one file have one form.
enum class TimeForm {
    Number,       ///< 12.5
    ClockOnly,    ///< H:M:S
    YearFirst,    ///< Y-m-d or Y/m/d and a clock time
    DayDotMonth,  ///< d.m.Y
    OrderOpen,    ///< m/d/Y or d/m/Y: both are tried
    MonthDayYear, ///< m/d/Y, being told so
    DayMonthYear  ///< d/m/Y, being told so
};

/// What a field that may be a time holds.
struct TimeShape {
    TimeForm form = TimeForm::Number;
    bool isDateOnly = false; ///< the clock time is the next field
};

/// The shape of `field`, or nothing when it is neither a time nor a date. With `comma` decimals may
/// have a comma.
std::optional<TimeShape> ShapeOfTime(std::string_view field, bool comma);

/// Whether `field` is a clock time that may stand beside a date: H:M, H:M:S or H:M:S.f, with or
/// without AM/PM, with or without a zone.
bool IsClockTime(std::string_view field, bool comma);

/// Reads the times of one file, all of the same form.
class TimeParser {
public:
    TimeParser() = default;
    /// `microsPerUnit` is for plain numbers; with `comma` decimals may have a comma.
    TimeParser(TimeForm form, bool comma, std::int64_t microsPerUnit)
        : form_(form)
        , comma_(comma)
        , microsPerUnit_(microsPerUnit) {}

    TimeForm Form() const { return form_; }

    /// The time in `field` in microseconds: since 1970 (clock times with a date), since midnight,
    /// since the file's zero (numbers). With TimeForm::OrderOpen it is an open time, see below.
    /// False where the field is no time of this form.
    bool Parse(std::string_view field, std::int64_t& time);

    /// The same for a date and a clock time in two fields.
    bool Parse(std::string_view date, std::string_view clock, std::int64_t& time);

    /// Whether the clock time that was parsed last had a fraction of a second.
    bool HadFraction() const { return hadFraction_; }

private:
    bool TakeDate(std::string_view& rest, std::int64_t& date);
    bool ParseNumberTime(std::string_view field, std::int64_t& time) const;

    TimeForm form_ = TimeForm::Number;
    bool comma_ = false;
    bool hadFraction_ = false;
    std::int64_t microsPerUnit_ = MicrosPerSecond;
    // Rows of one day repeat its date.
    std::string lastDate_;
    std::int64_t lastValue_ = 0;
};

// ---- Open times: the year, the two numbers and the microsecond of the day of a date whose order
// is not known yet
// ---------------------------------------------------------------------------------------------

/// Reads open times in one order; those of one day share their work.
class OpenTimeReader {
public:
    explicit OpenTimeReader(DateOrder order)
        : monthFirst_(order == DateOrder::MonthDay) {}

    /// The time of `open` in microseconds since 1970 into `time`; false where it is no date in this
    /// order.
    bool Read(std::int64_t open, std::int64_t& time);

private:
    bool monthFirst_;
    std::int64_t numbers_ = -1; ///< the date that was read last
    std::optional<std::int64_t> date_;
};

/// The same for a single time, or nothing where it is no date.
std::optional<std::int64_t> TimeOfOpen(std::int64_t open, DateOrder order);

// ---- Units of plain numbers ---------------------------------------------------------------------

/// The unit that the heading of a time column names ("Time (min)", "s", "Elapsed time, hr").
std::optional<TimeUnit> TimeUnitOfHeading(std::string_view heading);

/// Microseconds in one `unit`.
std::int64_t MicrosPerUnit(TimeUnit unit);

} // namespace quarnel
