#pragma once

#include "loggerfiles/TimeTexts.h"

#include <limits>

namespace quarnel {

/// Gathers the rows that a reader finds into a record. A row is AddRow and then AddNumber or
/// AddNotNumber for each of its channels, in any order; a channel may be missing in a row.
class RecordBuilder {
public:
    /// Fills `reading`. No more cells are made than `textSize` bytes can name. `fixedOrder` is set
    /// when the file is read a second time, with the order of its dates known.
    RecordBuilder(LoggerReading& reading, const ReadOptions& options, std::size_t textSize,
                  std::optional<DateOrder> fixedOrder = std::nullopt);

    LoggerReading& Reading() { return reading_; }
    const ReadOptions& Options() const { return options_; }

    /// Adds a channel; `kind` unset: told from its heading. Returns its number.
    std::size_t AddChannel(std::string name, std::string unit,
                           std::optional<ChannelKind> kind = std::nullopt);

    /// Names a channel that was added before its name was known.
    void NameChannel(std::size_t channel, std::string name, std::string unit);

    /// The parser for the times of this file, `shape` being that of its first one. `heading` is the
    /// one above its times.
    TimeParser ParserFor(TimeForm form, bool comma, std::string_view heading);

    /// Makes room for about `rows` rows.
    void ExpectRows(std::size_t rows);

    void AddRow(std::size_t line, std::int64_t time) {
        record_.times.push_back(time);
        record_.lines.push_back(static_cast<std::uint32_t>(line));
    }

    /// A number of the row that was added last; the first one of a channel counts.
    void AddNumber(std::size_t channel, double number) {
        std::vector<double>& values = record_.channels[channel].values;
        if (values.size() + 1 == record_.times.size())
            values.push_back(number);
        else
            AddNumberBehindGap(values, number);
    }

    /// What stands in the row that was added last is no number, and the user is told. Where nothing
    /// stands nothing needs to be said: see PassOverEmptyReadings.
    void AddNotNumber(std::size_t channel, std::string_view text) {
        if (!text.empty())
            record_.channels[channel].notNumbers.Add(record_.lines.back(), text,
                                                     LeftOutReason::NotANumber);
    }

    /// Rows without a reading are of another kind, so that the user is not told of them.
    void PassOverEmptyReadings() { emptyReadingsPass_ = true; }

    /// A row without a time.
    void LeaveOut(std::size_t line, std::string_view text) {
        reading_.leftOut.Add(line, text, LeftOutReason::NotATime);
    }

    /// Milliseconds since some zero of the row that was added last.
    void AddTimestamp(std::int64_t milliseconds) { timestampsMs_.push_back(milliseconds); }

    /// Tells `options.progress` how far the reading is, now and then; false: stop.
    bool GoesOn(std::size_t done) { return done < nextReport_ || Report(done); }

    /// Puts the times in order and checks them. Where some dates are none in the order that was
    /// found, that order: the file must be read a second time with it.
    std::optional<DateOrder> Finish(std::string_view name);

private:
    void AddNumberBehindGap(std::vector<double>& values, double number);
    void FillTo(std::vector<double>& values, std::size_t rows);
    bool Report(std::size_t done);
    std::optional<DateOrder> OrderDates();
    void PassMidnights();
    void UseTimestamps();
    void FinishChannels();
    void TellEmptyReadings(LoggerChannel& channel) const;
    void CheckRise();

    LoggerReading& reading_;
    LoggerRecord& record_;
    const ReadOptions& options_;
    std::size_t textSize_;
    std::optional<DateOrder> fixedOrder_;
    TimeForm form_ = TimeForm::Number;
    std::vector<std::int64_t> timestampsMs_;
    std::size_t gapCells_ = 0;
    bool emptyReadingsPass_ = false;
    std::size_t nextReport_ = 0;
};

} // namespace quarnel
