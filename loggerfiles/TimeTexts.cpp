#include "loggerfiles/TimeTexts.h"

#include "loggerfiles/FieldSplitter.h"
#include "loggerfiles/LoggerText.h"
#include "project/Texts.h"

#include <cmath>

namespace quarnel {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes 1 to `most` digits from the front of `rest`; how many there were.
std::size_t TakeDigits(std::string_view& rest, std::size_t most, int& value) {
    std::size_t count = 0;
    value = 0;
    while (count < most && count < rest.size() && IsDigit(rest[count]))
        value = value * 10 + (rest[count++] - '0');
    rest.remove_prefix(count);
    return count;
}

bool TakeChar(std::string_view& rest, char c) {
    if (rest.empty() || rest.front() != c)
        return false;
    rest.remove_prefix(1);
    return true;
}

void SkipBlanks(std::string_view& rest) {
    while (!rest.empty() && (rest.front() == ' ' || rest.front() == '\t'))
        rest.remove_prefix(1);
}

char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool TakeWord(std::string_view& rest, std::string_view lowerCaseWord) {
    if (rest.size() < lowerCaseWord.size())
        return false;
    for (std::size_t i = 0; i < lowerCaseWord.size(); ++i)
        if (LowerCase(rest[i]) != lowerCaseWord[i])
            return false;
    rest.remove_prefix(lowerCaseWord.size());
    return true;
}

// ---- Dates --------------------------------------------------------------------------------------

/// The three numbers of a date as they stand.
struct DateNumbers {
    char separator = '/';
    int first = 0, second = 0, third = 0;
    std::size_t firstDigits = 0, thirdDigits = 0;
};

bool TakeDateNumbers(std::string_view& rest, DateNumbers& date) {
    date.firstDigits = TakeDigits(rest, 4, date.first);
    if (date.firstDigits == 0 || rest.empty())
        return false;
    date.separator = rest.front();
    if (date.separator != '/' && date.separator != '-' && date.separator != '.')
        return false;
    rest.remove_prefix(1);
    const std::size_t secondDigits = TakeDigits(rest, 2, date.second);
    if (secondDigits == 0 || !TakeChar(rest, date.separator))
        return false;
    date.thirdDigits = TakeDigits(rest, 4, date.third);
    return date.thirdDigits > 0 && (rest.empty() || !IsDigit(rest.front()));
}

std::optional<TimeForm> FormOfDate(const DateNumbers& date) {
    const bool lastIsYear = date.thirdDigits == 4 || date.thirdDigits == 2;
    if (date.firstDigits == 4)
        return date.separator != '.' && date.thirdDigits <= 2
                   ? std::optional<TimeForm>(TimeForm::YearFirst)
                   : std::nullopt;
    if (date.separator == '-')
        return date.firstDigits == 2 && date.thirdDigits <= 2
                   ? std::optional<TimeForm>(TimeForm::YearFirst)
                   : std::nullopt;
    if (date.firstDigits > 2 || !lastIsYear)
        return std::nullopt;
    return date.separator == '.' ? TimeForm::DayDotMonth : TimeForm::OrderOpen;
}

/// Two digits are a year from 1970 to 2069.
int FullYear(int year, std::size_t digits) {
    if (digits != 2)
        return year;
    return year + (year >= 70 ? 1900 : 2000);
}

std::optional<std::int64_t> MicrosOfDate(int year, int month, int day) {
    const std::chrono::year_month_day date{std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok())
        return std::nullopt;
    return std::chrono::sys_days(date).time_since_epoch().count() * MicrosPerDay;
}

// Open times have the microsecond of the day in the lowest 37 bits, above it the second number of
// the date, the first (5 bits each) and the year.
constexpr unsigned MicroBits = 37;
constexpr unsigned NumberBits = 5;
constexpr std::int64_t LargestNumber = 31;

std::optional<std::int64_t> OpenDate(int year, int first, int second) {
    if (first > LargestNumber || second > LargestNumber)
        return std::nullopt;
    const std::int64_t numbers = (std::int64_t{first} << NumberBits) | second;
    const std::int64_t open = ((std::int64_t{year} << (2 * NumberBits)) | numbers) << MicroBits;
    if (!TimeOfOpen(open, DateOrder::MonthDay) && !TimeOfOpen(open, DateOrder::DayMonth))
        return std::nullopt;
    return open;
}

/// The date in the value that times of `form` begin with, or nothing where there is no such date.
std::optional<std::int64_t> ValueOfDate(const DateNumbers& date, TimeForm form) {
    const int lastYear = FullYear(date.third, date.thirdDigits);
    switch (form) {
    case TimeForm::YearFirst:
        return MicrosOfDate(FullYear(date.first, date.firstDigits), date.second, date.third);
    case TimeForm::OrderOpen:
        return OpenDate(lastYear, date.first, date.second);
    case TimeForm::MonthDayYear:
        return MicrosOfDate(lastYear, date.first, date.second);
    default:
        return MicrosOfDate(lastYear, date.second, date.first);
    }
}

// ---- Clock times --------------------------------------------------------------------------------

struct ClockTime {
    int hour = 0, minute = 0, second = 0, micros = 0;
    bool hasSeconds = false, hasFraction = false;

    std::int64_t Micros() const {
        return (std::int64_t{hour} * 3600 + minute * 60 + second) * MicrosPerSecond + micros;
    }
};

/// Minutes and seconds have two digits; with one, a number cut in the middle would pass as whole.
bool TakeTwoDigits(std::string_view& rest, int& value) {
    return TakeDigits(rest, 2, value) == 2 && value < 60 &&
           (rest.empty() || !IsDigit(rest.front()));
}

bool TakeFraction(std::string_view& rest, ClockTime& clock) {
    const std::size_t digits = TakeDigits(rest, 6, clock.micros);
    for (std::size_t i = digits; i < 6; ++i)
        clock.micros *= 10;
    clock.hasFraction = true;
    return digits > 0 && (rest.empty() || !IsDigit(rest.front()));
}

/// Takes AM or PM and turns the hour into one of 24; false where there is no such hour.
bool TakeHalfOfDay(std::string_view& rest, ClockTime& clock) {
    const bool isMorning = TakeWord(rest, "am") || TakeWord(rest, "a.m.");
    const bool isAfternoon = !isMorning && (TakeWord(rest, "pm") || TakeWord(rest, "p.m."));
    if (!isMorning && !isAfternoon)
        return clock.hour < 24;
    if (clock.hour < 1 || clock.hour > 12)
        return false;
    clock.hour = clock.hour % 12 + (isAfternoon ? 12 : 0);
    return true;
}

/// Takes a zone: Z, UTC, GMT, or hours and minutes from it.
bool TakeZone(std::string_view& rest) {
    if (!TakeWord(rest, "z") && !TakeWord(rest, "utc"))
        TakeWord(rest, "gmt");
    if (!TakeChar(rest, '+') && !TakeChar(rest, '-'))
        return true;
    int hours = 0;
    int minutes = 0;
    if (TakeDigits(rest, 2, hours) != 2)
        return false;
    TakeChar(rest, ':');
    const std::size_t digits = TakeDigits(rest, 2, minutes);
    return (digits == 0 || digits == 2) && hours < 24 && minutes < 60;
}

/// The clock time that is all of `rest`.
bool ParseClock(std::string_view rest, bool comma, ClockTime& clock) {
    SkipBlanks(rest);
    if (TakeDigits(rest, 2, clock.hour) == 0 || !TakeChar(rest, ':') ||
        !TakeTwoDigits(rest, clock.minute))
        return false;
    if (TakeChar(rest, ':')) {
        clock.hasSeconds = true;
        if (!TakeTwoDigits(rest, clock.second))
            return false;
        if ((TakeChar(rest, '.') || (comma && TakeChar(rest, ','))) && !TakeFraction(rest, clock))
            return false;
    }
    if (rest.empty())
        return clock.hour < 24;
    SkipBlanks(rest);
    if (!TakeHalfOfDay(rest, clock))
        return false;
    SkipBlanks(rest);
    if (!TakeZone(rest))
        return false;
    SkipBlanks(rest);
    return rest.empty();
}

/// Takes what stands between a date and its clock time in one field.
bool TakeBetween(std::string_view& rest) {
    if (TakeChar(rest, 'T') || TakeChar(rest, 't'))
        return true;
    const std::size_t size = rest.size();
    SkipBlanks(rest);
    return rest.size() < size;
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::optional<TimeUnit> TimeUnitOfWord(std::string_view word) {
    struct Named {
        std::string_view name;
        TimeUnit unit;
    };
    constexpr Named Names[] = {{"S", Second},      {"SEC", Second},     {"SECS", Second},
                               {"SECOND", Second}, {"SECONDS", Second}, {"MIN", Minute},
                               {"MINS", Minute},   {"MINUTE", Minute},  {"MINUTES", Minute},
                               {"H", Hour},        {"HR", Hour},        {"HRS", Hour},
                               {"HOUR", Hour},     {"HOURS", Hour},     {"D", Day},
                               {"DAY", Day},       {"DAYS", Day}};
    for (const Named& named : Names)
        if (EqualsIgnoringCase(word, named.name))
            return named.unit;
    return std::nullopt;
}

} // namespace

std::optional<TimeShape> ShapeOfTime(std::string_view field, bool comma) {
    std::string_view rest = TrimSpace(field);
    DateNumbers date;
    if (TakeDateNumbers(rest, date)) {
        const std::optional<TimeForm> form = FormOfDate(date);
        if (!form || !ValueOfDate(date, *form))
            return std::nullopt;
        ClockTime clock;
        if (rest.empty())
            return TimeShape{*form, true};
        if (TakeBetween(rest) && ParseClock(rest, comma, clock))
            return TimeShape{*form, false};
        return std::nullopt;
    }
    ClockTime clock;
    if (ParseClock(field, comma, clock))
        return clock.hasSeconds ? std::optional<TimeShape>({TimeForm::ClockOnly, false})
                                : std::nullopt;
    double number = 0;
    if (ParseReading(field, comma, number))
        return TimeShape{TimeForm::Number, false};
    return std::nullopt;
}

bool IsClockTime(std::string_view field, bool comma) {
    ClockTime clock;
    return ParseClock(field, comma, clock);
}

bool TimeParser::TakeDate(std::string_view& rest, std::int64_t& date) {
    SkipBlanks(rest);
    const std::size_t size = lastDate_.size();
    if (size > 0 && rest.starts_with(lastDate_) && (rest.size() == size || !IsDigit(rest[size]))) {
        rest.remove_prefix(size);
        date = lastValue_;
        return true;
    }
    const std::string_view whole = rest;
    DateNumbers numbers;
    if (!TakeDateNumbers(rest, numbers))
        return false;
    const std::optional<TimeForm> form = FormOfDate(numbers);
    const bool isOrdered = form_ == TimeForm::MonthDayYear || form_ == TimeForm::DayMonthYear;
    if (form != (isOrdered ? TimeForm::OrderOpen : form_))
        return false;
    const std::optional<std::int64_t> value = ValueOfDate(numbers, form_);
    if (!value)
        return false;
    lastDate_ = whole.substr(0, whole.size() - rest.size());
    lastValue_ = date = *value;
    return true;
}

bool TimeParser::ParseNumberTime(std::string_view field, std::int64_t& time) const {
    /// Beyond it, a sum of microseconds is no longer sure to fit.
    constexpr double LargestMicros = 4e18;
    double number = 0;
    if (!ParseReading(field, comma_, number))
        return false;
    const double micros = number * static_cast<double>(microsPerUnit_);
    if (!(std::fabs(micros) < LargestMicros))
        return false;
    time = std::llround(micros);
    return true;
}

bool TimeParser::Parse(std::string_view field, std::int64_t& time) {
    if (form_ == TimeForm::Number)
        return ParseNumberTime(field, time);
    ClockTime clock;
    std::int64_t date = 0;
    if (form_ != TimeForm::ClockOnly && (!TakeDate(field, date) || !TakeBetween(field)))
        return false;
    if (!ParseClock(field, comma_, clock))
        return false;
    if (form_ == TimeForm::ClockOnly && !clock.hasSeconds)
        return false;
    hadFraction_ = clock.hasFraction;
    time = date + clock.Micros();
    return true;
}

bool TimeParser::Parse(std::string_view date, std::string_view clock, std::int64_t& time) {
    std::int64_t day = 0;
    ClockTime clockTime;
    if (!TakeDate(date, day))
        return false;
    SkipBlanks(date);
    if (!date.empty() || !ParseClock(clock, comma_, clockTime))
        return false;
    hadFraction_ = clockTime.hasFraction;
    time = day + clockTime.Micros();
    return true;
}

bool OpenTimeReader::Read(std::int64_t open, std::int64_t& time) {
    const std::int64_t numbers = open >> MicroBits;
    if (numbers != numbers_) {
        const auto second = static_cast<int>(numbers & LargestNumber);
        const auto first = static_cast<int>((numbers >> NumberBits) & LargestNumber);
        const auto year = static_cast<int>(numbers >> (2 * NumberBits));
        date_ = MicrosOfDate(year, monthFirst_ ? first : second, monthFirst_ ? second : first);
        numbers_ = numbers;
    }
    if (date_)
        time = *date_ + (open & ((std::int64_t{1} << MicroBits) - 1));
    return date_.has_value();
}

std::optional<std::int64_t> TimeOfOpen(std::int64_t open, DateOrder order) {
    std::int64_t time = 0;
    return OpenTimeReader(order).Read(open, time) ? std::optional<std::int64_t>(time)
                                                  : std::nullopt;
}

std::optional<TimeUnit> TimeUnitOfHeading(std::string_view heading) {
    // The last word that is a unit: "Time (min)", "Elapsed time, hr", "time_sec".
    std::size_t end = heading.size();
    while (end > 0) {
        if (!IsLetter(heading[end - 1])) {
            --end;
            continue;
        }
        std::size_t start = end;
        while (start > 0 && IsLetter(heading[start - 1]))
            --start;
        if (const auto unit = TimeUnitOfWord(heading.substr(start, end - start)))
            return unit;
        end = start;
    }
    return std::nullopt;
}

std::int64_t MicrosPerUnit(TimeUnit unit) {
    return static_cast<std::int64_t>(UnitFactorToSec(unit)) * MicrosPerSecond;
}

} // namespace quarnel
