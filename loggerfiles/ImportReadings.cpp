#include "loggerfiles/ImportReadings.h"

#include "diagnostics/ReadingStep.h"
#include "loggerfiles/Barometer.h"
#include "loggerfiles/StartOfTest.h"

#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

/// Decimals of readings that are rounded to 6.
int MostDecimals(std::span<const double> readings) {
    constexpr std::array<double, 7> Scales = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
    std::size_t decimals = 0;
    for (const double reading : readings)
        while (decimals + 1 < Scales.size() &&
               NearestWhole(reading * Scales[decimals]) / Scales[decimals] != reading)
            ++decimals;
    return static_cast<int>(decimals);
}

/// The reading step; most records hold two neighbours that differ by one last decimal, and then no
/// smaller difference need be looked for.
std::optional<double> StepOf(std::span<const double> readings) {
    const int decimals = MostDecimals(readings);
    const double smallest = Millionths(std::pow(10.0, -decimals));
    for (std::size_t row = 1; row < readings.size(); ++row)
        if (std::fabs(Millionths(readings[row]) - Millionths(readings[row - 1])) == smallest)
            return smallest / 1e6;
    return ReadingStep(readings, decimals);
}

const LoggerChannel* FirstPressure(const LoggerRecord& record) {
    const auto found = std::find_if(
        record.channels.begin(), record.channels.end(),
        [](const LoggerChannel& channel) { return channel.kind == ChannelKind::Pressure; });
    return found == record.channels.end() ? nullptr : &*found;
}

std::string FaultOfBarometer(const LoggerFile& file) {
    const LoggerReading& reading = file.reading;
    if (!reading.fault.empty())
        return reading.fault;
    if (reading.DateOrderIsOpen())
        return OpenDateOrderMessage(file.name);
    const LoggerChannel* pressure = FirstPressure(reading.record);
    if (pressure == nullptr)
        return "No pressure channel was found in " + file.name + ".";
    if (!KnownWaterUnit(pressure->unit))
        return "The unit '" + pressure->unit + "' in " + file.name + " is not known.";
    return {};
}

} // namespace

ImportReadings::ImportReadings(std::shared_ptr<const LoggerFile> file,
                               const ReadingChoices& choices)
    : file_(std::move(file))
    , choices_(choices)
    , channel_(choices.channel.value_or(ChannelChosenFirst(file_->reading.record.channels))) {
    sourceUnit_ = choices_.sourceUnit ? choices_.sourceUnit : KnownWaterUnit(ChannelItself().unit);
    levelUnit_ = choices_.levelUnit.value_or(sourceUnit_ ? WrittenUnit(*sourceUnit_) : Metre);
    TakeRows();
    Convert();
    FindStepAndJump();
}

const LoggerChannel& ImportReadings::ChannelItself() const {
    return file_->reading.record.channels[channel_];
}

std::span<const std::int64_t> ImportReadings::Times() const {
    return hasAllRows_ ? std::span(file_->reading.record.times) : std::span(times_);
}

void ImportReadings::TakeRows() {
    readings_ = ChannelItself().values;
    hasAllRows_ = std::none_of(readings_.begin(), readings_.end(),
                               [](double reading) { return std::isnan(reading); });
    if (hasAllRows_)
        return;
    const std::vector<std::int64_t>& times = file_->reading.record.times;
    std::size_t kept = 0;
    for (std::size_t row = 0; row < readings_.size(); ++row) {
        if (std::isnan(readings_[row]))
            continue;
        times_.push_back(times[row]);
        readings_[kept++] = readings_[row];
    }
    readings_.resize(kept);
}

void ImportReadings::Convert() {
    if (!sourceUnit_)
        return;
    const std::vector<double> air = AirPressure(); // metres of water
    const double metres = MetresOfWater(*sourceUnit_);
    for (std::size_t row = 0; row < readings_.size(); ++row) {
        double& reading = readings_[row];
        reading = airPressureSubtracted_
                      ? (reading * metres - air[row]) / MetresOfLength(levelUnit_)
                      : ConvertReading(reading, *sourceUnit_, levelUnit_);
        reading = RoundReading(reading);
    }
}

/// The air pressure at each row in metres of water, and what there is to say of it.
std::vector<double> ImportReadings::AirPressure() {
    if (!choices_.barometer)
        return {};
    barometerFault_ = FaultOfBarometer(*choices_.barometer);
    if (!barometerFault_.empty())
        return {};
    const LoggerRecord& record = choices_.barometer->reading.record;
    const LoggerRecord& own = file_->reading.record;
    const LoggerChannel& pressure = *FirstPressure(record);
    std::optional<std::vector<double>> air;
    // Seconds since some start are no time that another logger knows.
    if (record.timesAreClock == own.timesAreClock && record.hasDates == own.hasDates)
        air = PressureAt(Times(), record.times, pressure.values);
    airPressureSubtracted_ = air.has_value();
    barometerFallsShort_ = !air;
    if (!air)
        return {};
    const double metres = MetresOfWater(*KnownWaterUnit(pressure.unit));
    for (double& value : *air)
        value *= metres;
    return std::move(*air);
}

void ImportReadings::FindStepAndJump() {
    step_ = StepOf(readings_);
    jump_ = JumpRow(readings_, step_.value_or(0));
}

} // namespace quarnel
