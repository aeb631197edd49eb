#pragma once

#include "loggerfiles/ImportReadings.h"
#include "loggerfiles/StartOfTest.h"
#include "project/GlobalDeclar.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quarnel {

/// All that a user may choose for an import; what is unset is told from the file. Rows are counted
/// from 0 over the rows of the chosen channel that have a time and a reading.
struct ImportChoices {
    ReadingChoices readings;
    std::optional<DataType> dataType;
    std::optional<std::size_t> start; ///< first reading after the slug; skips jump and surge
    std::optional<std::size_t> end;   ///< last reading that is imported
    std::optional<RowSpan> staticRows;
    std::optional<double> staticLevel;   ///< level unit; overrides the span
    std::optional<int> thinnedPerDecade; ///< readings kept of each decade of time; unset: all

    bool operator==(const ImportChoices&) const = default;
};

/// What stands in the way of an import.
enum class ImportFault {
    None,
    File,      ///< it gives no readings that could be taken, or its times fall
    DateOrder, ///< month/day or day/month must be chosen
    Unit,      ///< the unit of the readings must be chosen
    Barometer, ///< the barometer's file gives no air pressure
    Start,     ///< the first reading after the slug must be chosen
    End        ///< the end lies before the start
};

/// One import, worked out from a logger file and the user's choices: which rows come, what static
/// level and slug test type go with them, what is told of it. The window and the terminal show
/// nothing else. Made by PlanImport and never changed.
struct ImportPlan {
    std::shared_ptr<const LoggerFile> file;
    ImportChoices choices;
    /// Null where the file has no channel.
    std::shared_ptr<const ImportReadings> readings;
    DataType dataType = GroundwaterHead;

    ImportFault fault = ImportFault::None;
    std::string faultMessage; ///< the sentence for the user, "" without a fault

    // While `fault` is Start or one listed before it there is no `start`, and nothing below it
    // holds. While it is End, the rows do not.
    std::optional<std::size_t> start;  ///< time zero
    std::size_t end = 0;               ///< the last row imported
    std::size_t surgeRows = 0;         ///< how far the start was moved
    RowSpan staticRows;                ///< empty for changes in head and a level that was typed
    std::optional<double> staticLevel; ///< level unit; nothing for changes in head
    RowSpan driftRows;                 ///< before the test, that a drift is taken from
    SlugTestType slugTestType = RisingHead;
    double firstY = 0;                  ///< Y at time zero, level unit
    std::optional<double> driftPerHour; ///< of the level before the test, level unit per hour
    /// The rows imported where they are thinned, ascending; else empty and all of `start` to `end`.
    std::vector<std::size_t> thinnedRows;

    std::vector<std::string> messages; ///< all notes, then the fault if there is one

    bool CanBeImported() const { return fault == ImportFault::None; }
    std::size_t RowCount() const { return readings ? readings->Readings().size() : 0; }
    std::size_t RowsBefore() const { return start.value_or(0); }
    std::size_t RowsAfter() const { return start ? RowCount() - end - 1 : 0; }
    /// Rows from time zero to the end, before any thinning.
    std::size_t RowsOfTest() const;
    std::size_t RowsImported() const;
    bool ThinningIsOffered() const;

    /// The row of the record that is the `number`th (from 0) to be imported, its texts and its Y.
    std::size_t RowAt(std::size_t number) const;
    RecoveryRow TextsAt(std::size_t number) const;
    double YAt(std::size_t number) const { return YOfRow(RowAt(number)); }
    /// Y, level unit, of any row of the record.
    double YOfRow(std::size_t row) const;

    /// "2024-03-05 11:59:00" ...; "" where the times are plain numbers or there is no start.
    std::string TimeZeroText() const;
    /// "" where there is no static level.
    std::string StaticText() const;
    /// "120 of 140 readings, from 2024-03-05 11:59:00, static level 5 m, Rising head."; "" while
    /// there is no start.
    std::string StateLine() const;

    /// The first row at or after `time`, the last at or before it (microseconds as in the record);
    /// nothing where there is none.
    std::optional<std::size_t> FirstRowFrom(std::int64_t time) const;
    std::optional<std::size_t> LastRowUntil(std::int64_t time) const;
};

/// Works out an import. The converted readings of `previous`, where they are of the same file and
/// choices, serve again, so that a handle that is dragged costs no pass over the whole record.
/// Choices beyond the record are held within it.
std::shared_ptr<const ImportPlan> PlanImport(std::shared_ptr<const LoggerFile> file,
                                             const ImportChoices& choices,
                                             const ImportPlan* previous = nullptr);

/// Puts a plan without a fault into a project: readings, no ignore keys, time unit s, level unit,
/// data type, slug test type and pre-slug text. Identification, geometry and the units of K stay,
/// and for changes in head the slug test type, which they have no use for.
void ApplyImport(const ImportPlan& plan, ProjectState& state);

/// Names a new project after the file: the well's label is its location, the date of the test the
/// day of time zero, where the file gives them.
void NameProjectAfterImport(const ImportPlan& plan, ProjectState& state);

} // namespace quarnel
