#include "loggerfiles/RecordBuilder.h"

#include "loggerfiles/DateOrders.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace quarnel {

namespace {

/// How many bytes are read between two looks at the progress.
constexpr std::size_t ReportStep = std::size_t{1} << 20U;

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

RecordBuilder::RecordBuilder(LoggerReading& reading, const ReadOptions& options,
                             std::size_t textSize, std::optional<DateOrder> fixedOrder)
    : reading_(reading)
    , record_(reading.record)
    , options_(options)
    , textSize_(textSize)
    , fixedOrder_(fixedOrder) {}

std::size_t RecordBuilder::AddChannel(std::string name, std::string unit,
                                      std::optional<ChannelKind> kind) {
    LoggerChannel channel;
    channel.kind = kind ? *kind : KindOfChannel(name, unit);
    channel.name = std::move(name);
    channel.unit = std::move(unit);
    record_.channels.push_back(std::move(channel));
    return record_.channels.size() - 1;
}

void RecordBuilder::NameChannel(std::size_t channel, std::string name, std::string unit) {
    LoggerChannel& named = record_.channels[channel];
    named.kind = KindOfChannel(name, unit);
    named.name = std::move(name);
    named.unit = std::move(unit);
}

TimeParser RecordBuilder::ParserFor(TimeForm form, bool comma, std::string_view heading) {
    form_ = form;
    record_.timesAreClock = form != TimeForm::Number;
    record_.hasDates = record_.timesAreClock && form != TimeForm::ClockOnly;
    if (form == TimeForm::OrderOpen && fixedOrder_)
        form_ =
            *fixedOrder_ == DateOrder::MonthDay ? TimeForm::MonthDayYear : TimeForm::DayMonthYear;
    const std::optional<TimeUnit> stated = TimeUnitOfHeading(heading);
    reading_.timeUnitIsOpen = !record_.timesAreClock && !stated;
    reading_.timeUnit = options_.timeUnit.value_or(stated.value_or(Second));
    return {form_, comma, MicrosPerUnit(reading_.timeUnit)};
}

void RecordBuilder::ExpectRows(std::size_t rows) {
    record_.times.reserve(rows);
    record_.lines.reserve(rows);
}

void RecordBuilder::FillTo(std::vector<double>& values, std::size_t rows) {
    if (values.size() >= rows)
        return;
    gapCells_ += rows - values.size();
    // A few numbers in a thousand columns must not make a table of thousands of millions.
    constexpr std::size_t SmallTable = 1'000'000;
    if (gapCells_ > textSize_ + SmallTable)
        throw std::bad_alloc();
    values.resize(rows, NoNumber);
}

void RecordBuilder::AddNumberBehindGap(std::vector<double>& values, double number) {
    if (values.size() >= record_.times.size())
        return;
    if (values.empty())
        values.reserve(std::min(record_.times.capacity(), textSize_));
    FillTo(values, record_.times.size() - 1);
    values.push_back(number);
}

bool RecordBuilder::Report(std::size_t done) {
    nextReport_ = done + ReportStep;
    if (options_.progress && !options_.progress(done, textSize_))
        reading_.isCancelled = true;
    return !reading_.isCancelled;
}

std::optional<DateOrder> RecordBuilder::Finish(std::string_view name) {
    if (form_ == TimeForm::OrderOpen && !record_.times.empty()) {
        if (const std::optional<DateOrder> again = OrderDates())
            return again;
    }
    if (form_ == TimeForm::ClockOnly)
        PassMidnights();
    UseTimestamps();
    FinishChannels();
    if (record_.times.size() < 2 || record_.channels.empty())
        reading_.fault = "No table of readings was found in " + std::string(name) + ".";
    else if (!reading_.DateOrderIsOpen())
        CheckRise();
    return std::nullopt;
}

std::optional<DateOrder> RecordBuilder::OrderDates() {
    const DateDecision decision = DecideDateOrder(record_.times, options_.dateOrder);
    reading_.bothDateOrders = decision.bothArePossible;
    reading_.dateOrder = decision.order;
    if (decision.secondsAgree)
        reading_.notes.emplace_back(
            "The dates can be read both ways; the times since the start are the same.");
    const DateOrder order = decision.order.value_or(DateOrder::MonthDay);
    if (decision.someAreInvalid)
        return order;
    OpenTimeReader ordered(order);
    for (std::int64_t& time : record_.times)
        ordered.Read(time, time);
    return std::nullopt;
}

void RecordBuilder::PassMidnights() {
    std::int64_t days = 0;
    std::int64_t before = 0;
    for (std::int64_t& time : record_.times) {
        if (before - time > MicrosPerDay / 2)
            days += MicrosPerDay;
        before = time;
        time += days;
    }
}

/// Times without fractions take their differences from the timestamps, where every row has one and
/// no two neighbours the same.
void RecordBuilder::UseTimestamps() {
    constexpr std::int64_t MicrosPerMs = 1000;
    if (timestampsMs_.empty() || timestampsMs_.size() != record_.times.size() ||
        std::adjacent_find(timestampsMs_.begin(), timestampsMs_.end()) != timestampsMs_.end())
        return;
    for (std::size_t i = 0; i < timestampsMs_.size(); ++i)
        record_.times[i] =
            record_.times.front() + (timestampsMs_[i] - timestampsMs_.front()) * MicrosPerMs;
}

void RecordBuilder::FinishChannels() {
    std::erase_if(record_.channels,
                  [](const LoggerChannel& channel) { return channel.values.empty(); });
    for (LoggerChannel& channel : record_.channels) {
        FillTo(channel.values, record_.times.size());
        if (!emptyReadingsPass_)
            TellEmptyReadings(channel);
    }
}

/// Adds the rows without a reading to those with something else in its place. They are told at the
/// end, since a short row would have to be told for each channel that it does not reach.
void RecordBuilder::TellEmptyReadings(LoggerChannel& channel) const {
    const LeftOutRows other = std::move(channel.notNumbers);
    channel.notNumbers = {};
    auto next = other.first.begin();
    for (std::size_t row = 0; row < channel.values.size(); ++row) {
        if (!std::isnan(channel.values[row]))
            continue;
        const bool isOther = next != other.first.end() && next->line == record_.lines[row];
        channel.notNumbers.Add(record_.lines[row], isOther ? next->text : "",
                               LeftOutReason::NotANumber);
        next += isOther ? 1 : 0;
    }
}

void RecordBuilder::CheckRise() {
    const auto fall = std::adjacent_find(record_.times.begin(), record_.times.end(),
                                         [](std::int64_t a, std::int64_t b) { return b < a; });
    if (fall == record_.times.end())
        return;
    const auto row = static_cast<std::size_t>(fall - record_.times.begin()) + 1;
    reading_.fault = "The times do not rise at row " + std::to_string(record_.lines[row]) + ".";
}

} // namespace quarnel
