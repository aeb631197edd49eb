#pragma once

#include "loggerfiles/LoggerRecord.h"
#include "loggerfiles/WaterUnits.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quarnel {

/// A logger file as it was read, and the name it goes by in messages.
struct LoggerFile {
    std::string name; ///< without its folder
    LoggerReading reading;
};

/// Which readings of a logger file are taken, in which units, less which air pressure.
struct ReadingChoices {
    std::optional<std::size_t> channel;          ///< counted from 0; unset: the one chosen first
    std::optional<WaterUnit> sourceUnit;         ///< unset: as the file says
    std::optional<LengthUnit> levelUnit;         ///< unset: the one that goes with the source's
    std::shared_ptr<const LoggerFile> barometer; ///< its first pressure channel is subtracted

    bool operator==(const ReadingChoices&) const = default;
};

/// The readings of one channel as lengths: those rows of the record that have a number there,
/// converted, less the air pressure, rounded to 6 decimals. Never changes once it is made.
class ImportReadings {
public:
    /// `file` must have a channel of the number chosen. Where the unit is not known the readings
    /// stand as they are in the file.
    ImportReadings(std::shared_ptr<const LoggerFile> file, const ReadingChoices& choices);

    const LoggerFile& File() const { return *file_; }
    const ReadingChoices& Choices() const { return choices_; }
    std::size_t Channel() const { return channel_; }
    const LoggerChannel& ChannelItself() const;

    /// Nothing where neither the file nor the user names a known one.
    std::optional<WaterUnit> SourceUnit() const { return sourceUnit_; }
    LengthUnit LevelUnit() const { return levelUnit_; }

    /// In microseconds as in the record, and in the level unit: as many of each.
    std::span<const std::int64_t> Times() const;
    std::span<const double> Readings() const { return readings_; }

    /// Smallest positive difference of any two readings, level unit; nothing where all are equal.
    std::optional<double> Step() const { return step_; }
    /// The row before the test by JumpRow.
    std::optional<std::size_t> Jump() const { return jump_; }

    bool AirPressureSubtracted() const { return airPressureSubtracted_; }
    /// The barometer's record ends before, or begins after, some of the rows.
    bool BarometerFallsShort() const { return barometerFallsShort_; }
    /// Why the barometer's file gives no air pressure at all; "" where it does or is not asked.
    const std::string& BarometerFault() const { return barometerFault_; }

private:
    void TakeRows();
    void Convert();
    std::vector<double> AirPressure();
    void FindStepAndJump();

    std::shared_ptr<const LoggerFile> file_;
    ReadingChoices choices_;
    std::size_t channel_ = 0;
    std::optional<WaterUnit> sourceUnit_;
    LengthUnit levelUnit_ = Metre;
    bool hasAllRows_ = true;
    std::vector<std::int64_t> times_; ///< only where some rows of the record have no number
    std::vector<double> readings_;
    std::optional<double> step_;
    std::optional<std::size_t> jump_;
    bool airPressureSubtracted_ = false;
    bool barometerFallsShort_ = false;
    std::string barometerFault_;
};

} // namespace quarnel
