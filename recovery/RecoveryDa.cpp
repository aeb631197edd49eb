#include "recovery/RecoveryDa.h"

#include "project/CellText.h"
#include "project/FixedLists.h"
#include "project/Texts.h"
#include "recovery/GridEditing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

namespace quarnel {

namespace {

constexpr std::string_view YWarning =
    "Y values <= 0 are present. This is OK, butY values <=0 cannot be used for parameter "
    "estimation. Y values <=0 near the start of the recovery data may indicate an error in the "
    "recovery data, an error in the specified Water Level Measurement method, or an error in the "
    "specified Slug Test Type.";

constexpr std::string_view LineBreak = "\r\n";

void TrimCell(CellText& cell) {
    const std::string_view text = cell.View();
    if (text.empty() || (text.front() != ' ' && text.back() != ' '))
        return;
    cell.Set(TrimBlanks(text));
}

FaultPlace PreSlugPlace() {
    FaultPlace place;
    place.kind = FaultPlace::PreSlugBox;
    return place;
}

Result CheckPreSlug(ProjectState& state, RecoveryData& data) {
    std::string& text = state.RecDatPreSlugHeadText;
    text = std::string(TrimBlanks(text));
    if (text.empty())
        return Result::Error("Please enter the Pre-Slug Test Condition.", PreSlugPlace());
    const std::optional<double> value = ParseNumber(text, state.DecimalSeparator);
    if (!value)
        return Result::Error("Value entered for Pre-Slug Test Condition cannot be evaluated as a "
                             "number. Please re-enter.",
                             PreSlugPlace());
    data.preSlugText = text;
    data.preSlug = *value;
    return Result::Ok();
}

/// What is wrong with a row that is not blank; a million good rows make no text.
enum class RowFault { None, NoTime, TimeNotANumber, TimeNegative, NoReading, ReadingNotANumber };

FaultPlace PlaceOf(RowFault fault, std::size_t rowNumber) {
    const bool inReading = fault == RowFault::NoReading || fault == RowFault::ReadingNotANumber;
    FaultPlace place;
    place.kind = FaultPlace::RecoveryCell;
    place.row = rowNumber;
    place.column = inReading ? ReadingColumn : TimeColumn;
    return place;
}

std::string MessageOf(RowFault fault, std::size_t rowNumber) {
    const std::string row = std::to_string(rowNumber);
    const std::string notANumber = " cannot be evaluated as a number. Please re-enter.";
    switch (fault) {
    case RowFault::None:
        break;
    case RowFault::NoTime:
        return "Missing Time value in row " + row + ".";
    case RowFault::TimeNotANumber:
        return "Time value in row " + row + notANumber;
    case RowFault::TimeNegative:
        return "Time value in row " + row + " must be >= 0.";
    case RowFault::NoReading:
        return "Missing Recovery data in row " + row + ".";
    case RowFault::ReadingNotANumber:
        return "Recovery data in row " + row + notANumber;
    }
    return {};
}

/// Checks one row that is not blank and fills `point` with its texts and values.
RowFault CheckRow(const RecoveryRow& cells, std::string_view separator, RecoveryPoint& point) {
    if (cells.time.empty())
        return RowFault::NoTime;
    if (!ParseNumber(cells.time, separator, point.time))
        return RowFault::TimeNotANumber;
    if (point.time < 0)
        return RowFault::TimeNegative;
    if (cells.level.empty())
        return RowFault::NoReading;
    if (!ParseNumber(cells.level, separator, point.level))
        return RowFault::ReadingNotANumber;
    point.timeText = cells.time;
    point.levelText = cells.level;
    return RowFault::None;
}

/// Trims every cell up to the first fault, as the check goes, and gathers the points.
Result CheckRows(ProjectState& state, RecoveryPointList& points) {
    for (std::size_t i = 0; i < state.RecDatGrid.size(); ++i) {
        RecoveryRow& cells = state.RecDatGrid[i];
        TrimCell(cells.time);
        TrimCell(cells.level);
        if (cells.time.empty() && cells.level.empty())
            continue;
        const RowFault fault = CheckRow(cells, state.DecimalSeparator, points.emplace_back());
        if (fault != RowFault::None)
            return Result::Error(MessageOf(fault, i + 1), PlaceOf(fault, i + 1));
    }
    return Result::Ok();
}

void FindExtremes(const RecoveryPointList& points, PlotBounds& bounds) {
    bounds.PlotMaxTime = 0;
    bounds.PlotMinY = 1e9;
    bounds.PlotMaxY = 0;
    for (const RecoveryPoint& point : points) {
        if (!(point.y > 0))
            continue;
        if (point.time > bounds.PlotMaxTime)
            bounds.PlotMaxTime = point.time;
        if (point.y > bounds.PlotMaxY)
            bounds.PlotMaxY = point.y;
        if (point.y < bounds.PlotMinY)
            bounds.PlotMinY = point.y;
    }
}

/// The powers of ten 1e-6 to 1e6 themselves: a product of rounded steps would miss them.
constexpr std::array<double, 13> PowersOfTen = {1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 1e-1, 1e0,
                                                1e1,  1e2,  1e3,  1e4,  1e5,  1e6};

/// The decades around the Y values: the lower bound from 1e5 down to 1e-6, the upper bound at least
/// one decade above it.
void FindDecades(PlotBounds& bounds) {
    std::size_t at = PowersOfTen.size() - 1;
    do {
        --at;
        bounds.PlotYAxisMin = PowersOfTen[at];
    } while (at > 0 && PowersOfTen[at] > bounds.PlotMinY);
    do {
        ++at;
        bounds.PlotYAxisMax = PowersOfTen[at];
    } while (at + 1 < PowersOfTen.size() && PowersOfTen[at] < bounds.PlotMaxY);
}

void ComputeBounds(RecoveryData& data) {
    PlotBounds& bounds = data.bounds;
    FindExtremes(*data.RecoveryPoints, bounds);
    bounds.PlotMaxYcm = bounds.PlotMaxY * UnitFactorToCm(data.levelUnit);
    if (data.ValidYCount == 1) {
        bounds.PlotMaxTime = std::max(bounds.PlotMaxTime * 2, 0.01);
        bounds.PlotMinY /= 2;
        bounds.PlotMaxY *= 2;
    }
    if (data.ValidYCount == 0) {
        bounds.PlotMaxTime = 10;
        bounds.PlotMinY = 1;
        bounds.PlotYAxisMin = 1;
        bounds.PlotMaxY = 10;
        bounds.PlotYAxisMax = 10;
        return;
    }
    FindDecades(bounds);
}

} // namespace

Result CheckRecoveryData(ProjectState& state, RecoveryData& data) {
    data.dataType = state.RecDatDataTypeDDL;
    data.preSlugText.clear();
    data.preSlug = 0;
    RecoveryPointList& points = data.RecoveryPoints.Renew(state.RecDatGrid.size());
    data.ValidYCount = 0;
    if (data.dataType < ChangeInHead)
        if (Result result = CheckPreSlug(state, data); result.IsError())
            return result;
    data.slugTestType = state.RecDatSlugTestTypeDDL;
    data.timeUnit = state.RecDatTimeUnitsDDL;
    data.levelUnit = state.RecDatWaterLevelUnitsDDL;
    Result result = CheckRows(state, points);
    if (result.IsError())
        points.clear();
    return result;
}

double YSign(int dataType, int slugTestType) {
    if (slugTestType == SlugTestTypeNotApplicable || dataType == ChangeInHead)
        return 1;
    const bool rising = slugTestType == RisingHead;
    if (dataType == DepthToGroundwater)
        return rising ? 1 : -1;
    return rising ? -1 : 1;
}

Result ComputeRecoveryY(RecoveryData& data) {
    const double sign = YSign(data.dataType, data.slugTestType);
    const double secPerUnit = UnitFactorToSec(data.timeUnit);
    const double cmPerUnit = UnitFactorToCm(data.levelUnit);
    data.ValidYCount = 0;
    for (RecoveryPoint& point : data.RecoveryPoints.Change()) {
        point.y = (point.level - data.preSlug) * sign;
        if (point.YIsValid())
            ++data.ValidYCount;
        point.timeSec = point.time * secPerUnit;
        point.yCm = point.y * cmPerUnit;
        if (point.yCm > 0)
            point.lnYCm = std::log(point.yCm);
    }
    ComputeBounds(data);
    return data.ValidYCount == static_cast<int>(data.RecoveryPoints->size())
               ? Result::Ok()
               : Result::Warning(std::string(YWarning));
}

std::string YText(const RecoveryPoint& point) {
    std::string text = SingleToText(point.y);
    if (!text.empty() && text.front() != '-')
        text.insert(text.begin(), ' ');
    return text;
}

std::string SampleHeading() {
    return "Sample" + std::string(LineBreak) + " Number";
}

std::string TimeHeading(int timeUnit) {
    return "Time" + std::string(LineBreak) + "(" + std::string(NameAt(TimeUnitNames, timeUnit)) +
           ")";
}

std::string RecoveryHeading(int dataType, int levelUnit) {
    return "Recovery" + std::string(LineBreak) + std::string(NameAt(DataTypeLetters, dataType)) +
           "   (" + std::string(NameAt(LengthUnitNames, levelUnit)) + ")";
}

std::string YHeading(int levelUnit) {
    return " " + std::string(LineBreak) + "Y   (" +
           std::string(NameAt(LengthUnitNames, levelUnit)) + ")";
}

std::string PreSlugLabel(int dataType, int levelUnit) {
    if (dataType == ChangeInHead)
        return std::string(NotApplicable);
    return std::string(NameAt(DataTypeNames, dataType)) + "(" +
           std::string(NameAt(LengthUnitNames, levelUnit)) + ")";
}

} // namespace quarnel
