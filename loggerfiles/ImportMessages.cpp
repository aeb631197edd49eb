#include "loggerfiles/ImportMessages.h"

#include "kcompute/NumberToText.h"
#include "loggerfiles/Drift.h"
#include "loggerfiles/ImportTexts.h"
#include "project/Texts.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace quarnel {

namespace {

using Messages = std::vector<std::string>;

constexpr std::int64_t MicrosecondsOfHour = 3'600'000'000;

std::string CountText(std::size_t count, std::string_view one, std::string_view many) {
    return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

/// Three figures with a minus sign of its own: mode 2 has an exponent for every negative number.
std::string SignedThreeFigures(double value) {
    return (value < 0 ? "-" : "") + ThreeFigureText(std::fabs(value));
}

std::int64_t DurationOf(const ImportPlan& plan) {
    const std::span<const std::int64_t> times = plan.readings->Times();
    return times[plan.end] - times[*plan.start];
}

bool IsOfKind(const ImportPlan& plan, std::initializer_list<ChannelKind> kinds) {
    const ChannelKind kind = plan.readings->ChannelItself().kind;
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

void AddDepthNote(const ImportPlan& plan, Messages& messages) {
    if (!IsOfKind(plan, {ChannelKind::Level, ChannelKind::DepthToWater}))
        return;
    std::string note = DepthAndPressureNote(plan.file->reading.record.channels);
    if (!note.empty())
        messages.push_back(std::move(note));
}

/// Whether the static level stands on the end of the record for want of readings before the start.
bool StaticRowsAreLast(const ImportPlan& plan) {
    return plan.staticRows.Count() > 0 && !plan.choices.staticRows &&
           *plan.start - plan.surgeRows < FewestStaticRows;
}

void AddStartNotes(const ImportPlan& plan, Messages& messages) {
    if (StaticRowsAreLast(plan))
        messages.emplace_back("Fewer than 5 readings stand before the start: the static level is "
                              "the median of the last readings.");
    if (plan.surgeRows > 0)
        messages.push_back("The start was moved " + CountText(plan.surgeRows, "row", "rows") +
                           " forward: the level was still moving away.");
}

void AddDriftNote(const ImportPlan& plan, Messages& messages) {
    if (!plan.driftPerHour)
        return;
    const std::optional<double> change = TheilSenMillionths(
        plan.readings->Times().subspan(plan.driftRows.first, plan.driftRows.Count()),
        plan.readings->Readings().subspan(plan.driftRows.first, plan.driftRows.Count()),
        DurationOf(plan));
    if (change && DriftMatters(*change, plan.firstY))
        messages.push_back("The level was already moving by " +
                           SignedThreeFigures(*plan.driftPerHour) + " " +
                           std::string(NameAt(LengthUnitNames, plan.readings->LevelUnit())) +
                           " per hour before the test; Bouwer-Rice assumes a still level "
                           "(Ostendorf and DeGroot 2010).");
}

void AddAirPressureNote(const ImportPlan& plan, Messages& messages) {
    constexpr std::int64_t LongestWithoutBarometer = 2 * MicrosecondsOfHour;
    const std::int64_t duration = DurationOf(plan);
    if (!IsOfKind(plan, {ChannelKind::Pressure}) || plan.readings->AirPressureSubtracted() ||
        duration <= LongestWithoutBarometer)
        return;
    messages.push_back("The test lasts " +
                       ThreeFigureText(static_cast<double>(duration) / MicrosecondsOfHour) +
                       " hours: the air pressure may have changed. A barometer file can be "
                       "subtracted.");
}

} // namespace

std::vector<std::string> LeftOutMessages(const LeftOutRows& rows) {
    Messages messages;
    for (const LeftOutRow& row : rows.first)
        messages.push_back(LeftOutMessage(row));
    if (rows.count > rows.first.size())
        messages.push_back("and " +
                           CountText(rows.count - rows.first.size(), "more row", "more rows"));
    return messages;
}

std::vector<std::string> MessagesOf(const ImportPlan& plan) {
    Messages messages = plan.file->reading.notes;
    if (plan.readings) {
        for (std::string& message :
             LeftOutMessages(LeftOutOfChannel(plan.file->reading, plan.readings->Channel())))
            messages.push_back(std::move(message));
        AddDepthNote(plan, messages);
        if (plan.readings->BarometerFallsShort())
            messages.emplace_back("The barometer file does not cover the test.");
    }
    if (plan.CanBeImported()) {
        AddStartNotes(plan, messages);
        AddDriftNote(plan, messages);
        AddAirPressureNote(plan, messages);
    }
    if (!plan.faultMessage.empty())
        messages.push_back(plan.faultMessage);
    return messages;
}

namespace {

/// "static level 5 m from 20 readings, Rising head", or what stands for it.
std::string StaticPart(const ImportPlan& plan) {
    if (plan.dataType == ChangeInHead)
        return "change in head";
    std::string text = "static level " + plan.StaticText() + " " +
                       std::string(NameAt(LengthUnitNames, plan.readings->LevelUnit()));
    text += plan.staticRows.Count() > 0
                ? " from " + CountText(plan.staticRows.Count(), "reading", "readings")
                : " as typed";
    return text + ", " + std::string(TrimBlanks(NameAt(SlugTestTypeNames, plan.slugTestType)));
}

} // namespace

std::string ImportedText(const ImportPlan& plan) {
    const LoggerRecord& record = plan.file->reading.record;
    std::string text = "Imported " + std::to_string(plan.RowsImported()) + " of " +
                       CountText(plan.RowCount(), "reading", "readings") + " of " +
                       plan.readings->ChannelItself().name + " from " + plan.file->name +
                       ": time zero " + RecordTimeText(record, plan.readings->Times()[*plan.start]);
    if (!record.timesAreClock)
        text += " sec";
    text += ", " + StaticPart(plan);
    if (plan.readings->AirPressureSubtracted())
        text += ", less the air pressure of " + plan.readings->Choices().barometer->name;
    return text + ".";
}

} // namespace quarnel
