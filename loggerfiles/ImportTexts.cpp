#include "loggerfiles/ImportTexts.h"

#include "loggerfiles/Rounding.h"
#include "project/Texts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>

namespace quarnel {

namespace {

constexpr std::int64_t MicrosecondsOfSecond = 1'000'000;
constexpr std::int64_t MicrosecondsOfDay = 86'400 * MicrosecondsOfSecond;

/// `count` as so many digits at least.
std::string Padded(std::int64_t count, std::size_t digits) {
    std::string text = std::to_string(count);
    return std::string(text.size() < digits ? digits - text.size() : 0, '0') + text;
}

/// ".25" of 250000 millionths, "" of none.
std::string FractionText(std::int64_t millionths) {
    if (millionths == 0)
        return {};
    std::string text = "." + Padded(millionths, 6);
    text.erase(text.find_last_not_of('0') + 1);
    return text;
}

/// A grid of a million rows is made of such texts, so they are put together without a string.
CellText DecimalText(bool isNegative, std::int64_t whole, std::int64_t millionths) {
    std::array<char, 32> text{};
    char* end = text.data();
    if (isNegative)
        *end++ = '-';
    end = std::to_chars(end, text.data() + text.size(), whole).ptr;
    if (millionths > 0) {
        *end++ = '.';
        for (std::int64_t digit = 100'000; millionths > 0; digit /= 10) {
            *end++ = static_cast<char>('0' + millionths / digit);
            millionths %= digit;
        }
    }
    return CellText(std::string_view(text.data(), static_cast<std::size_t>(end - text.data())));
}

CellText LargeReadingText(double reading) {
    std::array<char, 400> digits{}; // the greatest double has 309 in front of its point
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), reading,
                                      std::chars_format::fixed, 6);
    std::string_view text(digits.data(), static_cast<std::size_t>(result.ptr - digits.data()));
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.remove_suffix(1);
    return CellText(text);
}

std::string TimeOfDayText(std::int64_t sinceMidnight) {
    const std::int64_t seconds = sinceMidnight / MicrosecondsOfSecond;
    return Padded(seconds / 3600, 2) + ":" + Padded(seconds / 60 % 60, 2) + ":" +
           Padded(seconds % 60, 2) + FractionText(sinceMidnight % MicrosecondsOfSecond);
}

std::chrono::sys_days DayOf(std::int64_t time) {
    return std::chrono::floor<std::chrono::days>(
        std::chrono::sys_time<std::chrono::microseconds>(std::chrono::microseconds(time)));
}

std::int64_t SinceMidnight(std::int64_t time) {
    return (time % MicrosecondsOfDay + MicrosecondsOfDay) % MicrosecondsOfDay;
}

/// Takes a whole number of at most `most` digits off the front of `text`; -1 where there is none.
std::int64_t TakeWhole(std::string_view& text, std::size_t most) {
    std::size_t digits = 0;
    while (digits < std::min(most, text.size()) && text[digits] >= '0' && text[digits] <= '9')
        ++digits;
    std::int64_t value = -1;
    std::from_chars(text.data(), text.data() + digits, value);
    text.remove_prefix(digits);
    return value;
}

bool Take(std::string_view& text, char character) {
    if (text.empty() || text.front() != character)
        return false;
    text.remove_prefix(1);
    return true;
}

/// Takes "-m-d" with year in front; the midnight that begins the day.
std::optional<std::int64_t> TakeDay(std::string_view& text) {
    const std::int64_t year = TakeWhole(text, 4);
    const bool monthFollows = Take(text, '-');
    const std::int64_t month = TakeWhole(text, 2);
    const bool dayFollows = Take(text, '-');
    const std::int64_t day = TakeWhole(text, 2);
    if (year < 0 || month < 0 || day < 0 || !monthFollows || !dayFollows)
        return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year(static_cast<int>(year)),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok())
        return std::nullopt;
    return std::chrono::sys_days(date).time_since_epoch().count() * MicrosecondsOfDay;
}

/// The fraction of a second behind its point, in microseconds; digits beyond the sixth are none.
std::optional<std::int64_t> TakeFraction(std::string_view& text) {
    const std::size_t before = text.size();
    std::int64_t value = TakeWhole(text, 6);
    if (value < 0)
        return std::nullopt;
    for (std::size_t digits = before - text.size(); digits < 6; ++digits)
        value *= 10;
    return value;
}

/// "H:M", "H:M:S" or "H:M:S.f" as microseconds since midnight; nothing may follow.
std::optional<std::int64_t> TimeOfDay(std::string_view text) {
    const std::int64_t hour = TakeWhole(text, 2);
    const bool minuteFollows = Take(text, ':');
    const std::int64_t minute = TakeWhole(text, 2);
    std::int64_t second = 0;
    std::optional<std::int64_t> fraction = 0;
    if (Take(text, ':')) {
        second = TakeWhole(text, 2);
        if (second >= 0 && Take(text, '.'))
            fraction = TakeFraction(text);
    }
    if (!text.empty() || !minuteFollows || !fraction || hour < 0 || hour > 23 || minute < 0 ||
        minute > 59 || second < 0 || second > 59)
        return std::nullopt;
    return ((hour * 60 + minute) * 60 + second) * MicrosecondsOfSecond + *fraction;
}

std::optional<std::int64_t> DateTime(std::string_view text) {
    const std::optional<std::int64_t> day = TakeDay(text);
    if (!day || (!Take(text, ' ') && !Take(text, 'T')))
        return std::nullopt;
    const std::optional<std::int64_t> time = TimeOfDay(TrimBlanks(text));
    return time ? std::optional(*day + *time) : std::nullopt;
}

/// A time of day without a date is the first one in the record, past midnight where it must be.
std::optional<std::int64_t> TimeWithoutDate(std::string_view text, std::int64_t firstRow) {
    const std::optional<std::int64_t> time = TimeOfDay(text);
    if (time && *time < firstRow)
        return *time + MicrosecondsOfDay;
    return time;
}

} // namespace

CellText ElapsedText(std::int64_t microseconds) {
    const std::int64_t milliseconds = (microseconds + 500) / 1000;
    return DecimalText(false, milliseconds / 1000, milliseconds % 1000 * 1000);
}

CellText ReadingText(double reading) {
    constexpr double LargestPlain = 1e9;
    if (!(std::fabs(reading) < LargestPlain))
        return LargeReadingText(reading);
    const auto millionths = static_cast<std::int64_t>(std::fabs(Millionths(reading)));
    return DecimalText(reading < 0 && millionths > 0, millionths / 1'000'000,
                       millionths % 1'000'000);
}

std::string RecordTimeText(const LoggerRecord& record, std::int64_t time) {
    if (!record.timesAreClock)
        return DoubleToText(static_cast<double>(time) / 1e6);
    const std::string timeOfDay = TimeOfDayText(SinceMidnight(time));
    return record.hasDates ? DayText(time) + " " + timeOfDay : timeOfDay;
}

std::string DayText(std::int64_t time) {
    const std::chrono::year_month_day date(DayOf(time));
    return Padded(static_cast<int>(date.year()), 4) + "-" +
           Padded(static_cast<unsigned>(date.month()), 2) + "-" +
           Padded(static_cast<unsigned>(date.day()), 2);
}

std::optional<std::int64_t> RecordTimeOf(const LoggerRecord& record, std::string_view text) {
    constexpr double LongestSeconds = 1e12;
    const std::int64_t firstRow = record.times.empty() ? 0 : record.times.front();
    text = TrimBlanks(text);
    if (const std::optional<double> seconds = ParseNumber(text))
        return *seconds >= 0 && *seconds < LongestSeconds
                   ? std::optional(firstRow + std::llround(*seconds * 1e6))
                   : std::nullopt;
    if (!record.timesAreClock)
        return std::nullopt;
    return record.hasDates ? DateTime(text) : TimeWithoutDate(text, firstRow);
}

} // namespace quarnel
