#include "loggerfiles/ImportPlan.h"

#include "loggerfiles/Drift.h"
#include "loggerfiles/ImportMessages.h"
#include "loggerfiles/ImportTexts.h"
#include "loggerfiles/Thinning.h"
#include "project/Texts.h"
#include "recovery/RecoveryDa.h"

#include <algorithm>

namespace quarnel {

namespace {

constexpr std::int64_t MicrosecondsOfHour = 3'600'000'000;

std::span<const double> LevelsOf(const ImportPlan& plan) {
    return plan.readings->Readings();
}

void SetFault(ImportPlan& plan, ImportFault fault, std::string message) {
    plan.fault = fault;
    plan.faultMessage = std::move(message);
}

void TakeReadings(ImportPlan& plan, const ImportPlan* previous) {
    const std::vector<LoggerChannel>& channels = plan.file->reading.record.channels;
    if (channels.empty())
        return;
    if (plan.choices.readings.channel)
        plan.choices.readings.channel =
            std::min(*plan.choices.readings.channel, channels.size() - 1);
    const bool same = previous != nullptr && previous->file == plan.file && previous->readings &&
                      previous->readings->Choices() == plan.choices.readings;
    plan.readings = same ? previous->readings
                         : std::make_shared<const ImportReadings>(plan.file, plan.choices.readings);
    plan.dataType =
        plan.choices.dataType.value_or(DataTypeOfKind(plan.readings->ChannelItself().kind));
}

/// What keeps the readings from being looked at any further.
void FindFaultOfReadings(ImportPlan& plan) {
    const LoggerReading& reading = plan.file->reading;
    if (!reading.fault.empty())
        SetFault(plan, ImportFault::File, reading.fault);
    else if (plan.RowCount() < 2)
        SetFault(plan, ImportFault::File,
                 "No table of readings was found in " + plan.file->name + ".");
    else if (reading.DateOrderIsOpen())
        SetFault(plan, ImportFault::DateOrder, OpenDateOrderMessage(plan.file->name));
    else if (!plan.readings->SourceUnit())
        SetFault(plan, ImportFault::Unit, UnknownUnitMessage(plan.readings->ChannelItself().unit));
    else if (!plan.readings->BarometerFault().empty())
        SetFault(plan, ImportFault::Barometer, plan.readings->BarometerFault());
}

std::optional<std::size_t> RowAfterJump(const ImportReadings& readings) {
    const std::optional<std::size_t> jump = readings.Jump();
    return jump ? std::optional(*jump + 1) : std::nullopt;
}

/// The rows that the static level is told from.
RowSpan ChooseStaticRows(const ImportPlan& plan, std::size_t start) {
    const RowSpan usual = StaticRows(plan.RowCount(), start);
    if (!plan.choices.staticRows)
        return usual;
    const RowSpan chosen{plan.choices.staticRows->first,
                         std::min(plan.choices.staticRows->end, plan.RowCount())};
    return chosen.Count() > 0 ? chosen : usual;
}

void FindStaticLevel(ImportPlan& plan, std::size_t start) {
    if (plan.dataType == ChangeInHead)
        return;
    const RowSpan rows = ChooseStaticRows(plan, start);
    // Readings of the test itself say nothing of the time before it.
    if (rows.end <= start)
        plan.driftRows = rows;
    if (plan.choices.staticLevel) {
        plan.staticLevel = RoundReading(*plan.choices.staticLevel);
        return;
    }
    plan.staticRows = rows;
    plan.staticLevel = StaticLevel(LevelsOf(plan), rows);
}

void FindStart(ImportPlan& plan) {
    const std::optional<std::size_t> found =
        plan.choices.start ? std::min(*plan.choices.start, plan.RowCount() - 1)
                           : RowAfterJump(*plan.readings);
    if (!found) {
        SetFault(plan, ImportFault::Start, std::string(NoStartMessage));
        return;
    }
    FindStaticLevel(plan, *found);
    // Changes in head are distances from the static level already.
    const double level = plan.staticLevel.value_or(0);
    if (!plan.choices.start)
        plan.surgeRows = SurgeRows(LevelsOf(plan), *found, level);
    const std::size_t start = *found + plan.surgeRows;
    const auto type = SlugTestTypeOf(plan.dataType, LevelsOf(plan)[start], level);
    if (!type) {
        SetFault(plan, ImportFault::Start, std::string(NoStartMessage));
        return;
    }
    plan.start = start;
    plan.slugTestType = *type;
    plan.firstY = plan.YOfRow(start);
}

void FindEnd(ImportPlan& plan) {
    const std::size_t last = plan.RowCount() - 1;
    plan.end = std::min(plan.choices.end.value_or(last), last);
    if (plan.end < *plan.start)
        SetFault(plan, ImportFault::End, std::string(EndBeforeStartMessage));
}

void FindDrift(ImportPlan& plan) {
    const std::optional<double> change = TheilSenMillionths(
        plan.readings->Times().subspan(plan.driftRows.first, plan.driftRows.Count()),
        LevelsOf(plan).subspan(plan.driftRows.first, plan.driftRows.Count()), MicrosecondsOfHour);
    if (change)
        plan.driftPerHour = *change / 1e6;
}

void Thin(ImportPlan& plan) {
    if (!plan.choices.thinnedPerDecade)
        return;
    std::vector<std::int64_t> times;
    times.reserve(plan.RowsOfTest());
    const std::span<const std::int64_t> all = plan.readings->Times();
    for (std::size_t row = *plan.start; row <= plan.end; ++row)
        times.push_back(all[row] - all[*plan.start]);
    plan.thinnedRows = ThinnedRows(times, std::max(1, *plan.choices.thinnedPerDecade));
    for (std::size_t& row : plan.thinnedRows)
        row += *plan.start;
}

void WorkOut(ImportPlan& plan) {
    FindFaultOfReadings(plan);
    if (plan.CanBeImported())
        FindStart(plan);
    if (plan.CanBeImported())
        FindEnd(plan);
    if (!plan.CanBeImported())
        return;
    FindDrift(plan);
    Thin(plan);
}

} // namespace

std::shared_ptr<const ImportPlan> PlanImport(std::shared_ptr<const LoggerFile> file,
                                             const ImportChoices& choices,
                                             const ImportPlan* previous) {
    auto plan = std::make_shared<ImportPlan>();
    plan->file = std::move(file);
    plan->choices = choices;
    TakeReadings(*plan, previous);
    WorkOut(*plan);
    plan->messages = MessagesOf(*plan);
    return plan;
}

std::size_t ImportPlan::RowsOfTest() const {
    return start && end >= *start ? end - *start + 1 : 0;
}

std::size_t ImportPlan::RowsImported() const {
    return choices.thinnedPerDecade ? thinnedRows.size() : RowsOfTest();
}

bool ImportPlan::ThinningIsOffered() const {
    return RowsOfTest() > MostRowsUnthinned;
}

std::size_t ImportPlan::RowAt(std::size_t number) const {
    return thinnedRows.empty() ? start.value_or(0) + number : thinnedRows[number];
}

RecoveryRow ImportPlan::TextsAt(std::size_t number) const {
    const std::size_t row = RowAt(number);
    const std::span<const std::int64_t> times = readings->Times();
    return {ElapsedText(times[row] - times[*start]), ReadingText(readings->Readings()[row])};
}

double ImportPlan::YOfRow(std::size_t row) const {
    const double y =
        (readings->Readings()[row] - staticLevel.value_or(0)) * YSign(dataType, slugTestType);
    return y + 0.0; // no minus zero
}

std::string ImportPlan::TimeZeroText() const {
    const LoggerRecord& record = file->reading.record;
    return start && record.timesAreClock ? RecordTimeText(record, readings->Times()[*start])
                                         : std::string();
}

std::string ImportPlan::StaticText() const {
    return staticLevel ? ReadingText(*staticLevel).ToString() : std::string();
}

std::string ImportPlan::StateLine() const {
    if (!start)
        return {};
    const LoggerRecord& record = file->reading.record;
    std::string line = std::to_string(RowsImported()) + " of " + std::to_string(RowCount()) +
                       " readings, from " + RecordTimeText(record, readings->Times()[*start]);
    if (!record.timesAreClock)
        line += " sec";
    if (dataType == ChangeInHead)
        return line + ", change in head.";
    return line + ", static level " + StaticText() + " " +
           std::string(NameAt(LengthUnitNames, readings->LevelUnit())) + ", " +
           std::string(TrimBlanks(NameAt(SlugTestTypeNames, slugTestType))) + ".";
}

std::optional<std::size_t> ImportPlan::FirstRowFrom(std::int64_t time) const {
    if (!readings)
        return std::nullopt;
    const std::span<const std::int64_t> times = readings->Times();
    const auto found = std::lower_bound(times.begin(), times.end(), time);
    return found == times.end() ? std::nullopt
                                : std::optional(static_cast<std::size_t>(found - times.begin()));
}

std::optional<std::size_t> ImportPlan::LastRowUntil(std::int64_t time) const {
    if (!readings)
        return std::nullopt;
    const std::span<const std::int64_t> times = readings->Times();
    const auto after = std::upper_bound(times.begin(), times.end(), time);
    return after == times.begin()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(after - times.begin()) - 1);
}

void ApplyImport(const ImportPlan& plan, ProjectState& state) {
    const std::size_t count = plan.RowsImported();
    std::vector<RecoveryRow> rows;
    rows.reserve(std::max(count + EmptyRowsAfterData, MinimumGridRows));
    for (std::size_t number = 0; number < count; ++number)
        rows.push_back(plan.TextsAt(number));
    rows.resize(std::max(count + EmptyRowsAfterData, MinimumGridRows));
    state.RecDatGrid = std::move(rows);
    state.IgnoreKeyList.clear();
    state.RecDatTimeUnitsDDL = Second;
    state.RecDatWaterLevelUnitsDDL = plan.readings->LevelUnit();
    state.RecDatDataTypeDDL = plan.dataType;
    if (plan.slugTestType != SlugTestTypeNotApplicable)
        state.RecDatSlugTestTypeDDL = plan.slugTestType;
    state.RecDatPreSlugHeadText = plan.StaticText();
}

void NameProjectAfterImport(const ImportPlan& plan, ProjectState& state) {
    const LoggerRecord& record = plan.file->reading.record;
    state.WellTestIDTxt[WellLabel] = record.location.value_or("");
    if (plan.start && record.hasDates)
        state.WellTestIDTxt[TestDate] = DayText(plan.readings->Times()[*plan.start]);
}

} // namespace quarnel
