#include "compare/TestRecord.h"

#include "diagnostics/Diagnostics.h"
#include "kcompute/ComputationDetails.h"
#include "kcompute/KComputations.h"
#include "kcompute/NumberToText.h"
#include "output/SummaryReport.h"
#include "project/FixedLists.h"
#include "project/PlainText.h"
#include "project/Texts.h"
#include "wellgeometry/WellGeometry.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <memory>
#include <optional>
#include <utility>

namespace quarnel {

namespace {

constexpr std::string_view MethodLine = "Method: Bouwer and Rice (1976), Water Resour. Res. "
                                        "12:423; Bouwer (1989), Ground Water 27:304.";
constexpr std::string_view NoKLine = "K was not computed.";

RecordLine ToFillIn(std::string_view label) {
    return {std::string(label) + ": ", true, {}};
}

RecordLine ToSign(std::string_view label) {
    return {std::string(label) + ": ", true, "  Date: "};
}

/// "LABEL: VALUE UNIT", to be filled in where the project holds no value.
RecordLine Stated(std::string_view label, std::string_view value, std::string_view unit = {}) {
    const std::string_view trimmed = TrimBlanks(value);
    if (trimmed.empty())
        return ToFillIn(label);
    std::string text = std::string(label) + ": " + PlainText(trimmed);
    if (!unit.empty())
        text.append(" ").append(unit);
    return {std::move(text), false, {}};
}

RecordLine Sentence(std::string_view text) {
    return {PlainText(text), false, {}};
}

/// The texts that hold something, in their order, parted by commas.
std::string Joined(std::initializer_list<std::string_view> texts) {
    std::string joined;
    for (const std::string_view text : texts)
        if (const std::string_view trimmed = TrimBlanks(text); !trimmed.empty())
            joined.append(joined.empty() ? "" : ", ").append(trimmed);
    return joined;
}

std::string Text(double value, double unit) {
    return ThreeFigureText(value / unit);
}

/// Makes the sections of one analysis.
class RecordMaker {
public:
    RecordMaker(const Analysis& analysis, const std::vector<std::string>& messages)
        : analysis_(analysis)
        , state_(analysis.state)
        , computation_(analysis.computation.get())
        , messages_(messages) {
        if (computation_ == nullptr)
            return;
        diagnostics_ = std::make_unique<Diagnostics>(analysis.computation, state_);
        lines_ = std::make_unique<DiagnosticsLines>(*computation_, state_);
    }

    std::vector<RecordSection> Make() {
        return {Head(), Well(), Test(), Readings(), AnalysisOfTest(), Checks(), Signatures()};
    }

private:
    RecordSection Head() const;
    RecordSection Well() const;
    RecordSection Test();
    RecordSection Readings();
    RecordSection AnalysisOfTest();
    RecordSection Checks();
    static RecordSection Signatures();

    RecordLine Length(std::string_view label, WellGeoIndex field, int unit) const;
    RecordLine Radius(std::string_view label, const std::string& text) const;
    RecordLine ScreenLine() const;
    RecordLine PreSlugLine() const;
    void AddFirstChange(std::vector<RecordLine>& lines);
    RecordTable ReadingsTable() const;
    void AddCoefficients(std::vector<RecordLine>& lines) const;
    void AddStatistics(std::vector<RecordLine>& lines);

    const Analysis& analysis_;
    const ProjectState& state_;
    const Computation* computation_;
    const std::vector<std::string>& messages_;
    std::unique_ptr<Diagnostics> diagnostics_; ///< null without a computation, as the lines
    std::unique_ptr<DiagnosticsLines> lines_;
};

RecordSection RecordMaker::Head() const {
    const auto& site = state_.SiteIDText;
    const auto& test = state_.WellTestIDTxt;
    const auto address = [&site](SiteIDIndex street, SiteIDIndex city, SiteIDIndex region,
                                 SiteIDIndex zip) {
        return Joined({site[street], site[city], site[region], site[zip]});
    };
    const std::string client =
        Joined({site[ClientName], address(ClientAddress, ClientCity, ClientState, ClientZip)});
    const std::string consultant =
        Joined({site[ConsultantName],
                address(ConsultantAddress, ConsultantCity, ConsultantState, ConsultantZip),
                site[ProfessionalName], site[CertificationNo]});
    return {std::string(RecordTitle),
            {Stated("Site name", site[SiteName]),
             Stated("Site address", address(SiteAddress, SiteCity, SiteState, SiteZip)),
             Stated("Client", client), Stated("Consultant", consultant),
             Stated("Well label", test[WellLabel]), Stated("Test date", test[TestDate]),
             Stated("Tested by", Joined({test[TestBy1], test[TestBy2], test[TestBy3]})),
             Stated("Analysed by", test[AnalysisBy])},
            {}};
}

RecordLine RecordMaker::Length(std::string_view label, WellGeoIndex field, int unit) const {
    return Stated(label, state_.WellGeoText[field], NameAt(LengthUnitNames, unit));
}

RecordLine RecordMaker::Radius(std::string_view label, const std::string& text) const {
    return Stated(label, computation_ != nullptr ? text : std::string(),
                  NameAt(LengthUnitNames, state_.WellGeoRadUnitsDDL));
}

RecordLine RecordMaker::ScreenLine() const {
    if (computation_ == nullptr)
        return ToFillIn("Screen");
    return Sentence(IsScreenAtWaterTable(computation_->geometry) ? "Screen: at the water table"
                                                                 : "Screen: below the water table");
}

RecordSection RecordMaker::Well() const {
    const int vertical = state_.WellGeoVertUnitsDDL;
    const int radial = state_.WellGeoRadUnitsDDL;
    const WellDimensions& well =
        computation_ != nullptr ? computation_->geometry : analysis_.working.geometry;
    return {"Well",
            {Length("H (water table to impervious bottom)", GeoH, vertical),
             Length("Lw (water table to bottom of well)", GeoLw, vertical),
             Length("Le (length of screen)", GeoLe, vertical),
             Length("dw (diameter of borehole)", GeoDw, radial),
             Length("dc (diameter of casing)", GeoDc, radial),
             Stated("dpor (drained filter pack porosity)", state_.WellGeoText[GeoDpor], "%"),
             Radius("rc (radius of casing)", ThreeFigureText(well.dc.radius)),
             Radius("rw (radius of borehole)", ThreeFigureText(well.dw.radius)),
             Radius("re (effective radius)", well.reText), ScreenLine(),
             ToFillIn("Construction log (number, date)"), ToFillIn("Development (date, method)")},
            {}};
}

RecordLine RecordMaker::PreSlugLine() const {
    if (state_.RecDatDataTypeDDL == ChangeInHead)
        return Stated("Pre-slug level", NotApplicable);
    return Stated("Pre-slug level", state_.RecDatPreSlugHeadText,
                  NameAt(LengthUnitNames, state_.RecDatWaterLevelUnitsDDL));
}

/// What the slug should give, what was seen, and what that says.
void RecordMaker::AddFirstChange(std::vector<RecordLine>& lines) {
    const auto add = [&](std::string_view label, std::optional<double> cm) {
        const int unit = state_.RecDatWaterLevelUnitsDDL;
        lines.push_back(Stated(label, cm ? Text(*cm, UnitFactorToCm(unit)) : std::string(),
                               NameAt(LengthUnitNames, unit)));
    };
    std::optional<double> expectedCm;
    std::optional<double> observedCm;
    if (diagnostics_ != nullptr) {
        const StatisticsPage& page = diagnostics_->Statistics();
        observedCm = page.firstYCm;
        if (page.slugVolume)
            expectedCm = page.slugVolume->expectedCm;
    }
    add("Expected first change in head", expectedCm);
    add("Observed first change in head", observedCm);
    if (diagnostics_ != nullptr)
        lines.push_back(Sentence(lines_->SlugVolume(diagnostics_->Statistics())));
}

RecordSection RecordMaker::Test() {
    const std::string_view slugTestType =
        state_.RecDatDataTypeDDL == ChangeInHead
            ? NotApplicable
            : NameAt(SlugTestTypeNames, state_.RecDatSlugTestTypeDDL);
    RecordSection section{"Test",
                          {Stated("Slug test type", slugTestType),
                           Stated("Data type", NameAt(DataTypeNames, state_.RecDatDataTypeDDL)),
                           PreSlugLine(), ToFillIn("Static level measured (date, time, by)"),
                           ToFillIn("Method of start (slug, bail, air)"),
                           Stated("Slug volume (L)", state_.VolumeOfSlugText)},
                          {}};
    AddFirstChange(section.lines);
    section.lines.push_back(ToFillIn("Sensor, range, interval"));
    section.lines.push_back(ToFillIn("Reference point and its elevation"));
    return section;
}

/// The readings as the report tells of them; without a computation as they were typed.
RecordTable RecordMaker::ReadingsTable() const {
    const auto cells = [](const ReportRow& row) { return TextRow(row.begin(), row.end()); };
    RecordTable table;
    table.headings = cells(ReportTableHeadings(state_, computation_));
    if (computation_ != nullptr) {
        table.rowCount = ReportTableSize(computation_);
        table.row = [this_ = computation_, cells](std::size_t row) {
            return cells(ReportTableRow(*this_, row));
        };
        return table;
    }
    std::vector<std::size_t> typed;
    for (std::size_t row = 0; row < state_.RecDatGrid.size(); ++row)
        if (!TrimBlanks(state_.RecDatGrid[row].time).empty() ||
            !TrimBlanks(state_.RecDatGrid[row].level).empty())
            typed.push_back(row);
    table.rowCount = typed.size();
    table.row = [&state = state_, typed = std::move(typed)](std::size_t row) {
        const RecoveryRow& reading = state.RecDatGrid[typed[row]];
        return TextRow{std::string(TrimBlanks(reading.time)),
                       std::string(TrimBlanks(reading.level)), "", "", ""};
    };
    return table;
}

RecordSection RecordMaker::Readings() {
    RecordSection section{"Readings", {}, ReadingsTable()};
    section.lines.push_back(Stated("Number of readings", std::to_string(section.table.rowCount)));
    std::string first;
    std::string last;
    std::string step;
    if (diagnostics_ != nullptr) {
        const RecoveryPointList& points = *computation_->recovery.RecoveryPoints;
        const std::vector<std::size_t>& order = diagnostics_->Points().Order();
        first = points[order.front()].timeText.ToString();
        last = points[order.back()].timeText.ToString();
        const std::optional<double> stepCm = diagnostics_->Statistics().readingStepCm;
        step = stepCm ? Text(*stepCm, UnitFactorToCm(computation_->recovery.levelUnit))
                      : std::string();
    }
    const std::string_view timeUnit = NameAt(TimeUnitNames, state_.RecDatTimeUnitsDDL);
    section.lines.push_back(Stated("First time", first, timeUnit));
    section.lines.push_back(Stated("Last time", last, timeUnit));
    section.lines.push_back(
        Stated("Reading step", step, NameAt(LengthUnitNames, state_.RecDatWaterLevelUnitsDDL)));
    return section;
}

void RecordMaker::AddCoefficients(std::vector<RecordLine>& lines) const {
    const ComputationLines told(*computation_);
    const WellDimensions& well = computation_->geometry;
    lines.push_back(Sentence(told.leOverRw));
    if (std::fabs(well.H.cm - well.Lw.cm) < FullPenetrationCm) {
        lines.push_back(Sentence(told.c + " (fully penetrating well)"));
    } else {
        lines.push_back(Sentence(told.a + " (partially penetrating well)"));
        lines.push_back(Sentence(told.b));
    }
    lines.push_back(Sentence(told.lnReOverRw));
    lines.push_back(Sentence(told.slope + " 1/sec (ln Y in cm against time in sec)"));
    lines.push_back(Sentence(told.intercept + " (ln cm)"));
}

void RecordMaker::AddStatistics(std::vector<RecordLine>& lines) {
    const StatisticsPage& page = diagnostics_->Statistics();
    lines.push_back(Stated("Points used", std::to_string(page.fit.usedCount) + " of " +
                                              std::to_string(page.pointCount) +
                                              ", normalized head Y/H0 from " +
                                              FixedText(page.greatestUsedHead, 2) + " to " +
                                              FixedText(page.leastUsedHead, 2)));
    for (const TextRow& row : lines_->Statistics(page))
        if (row[0].starts_with('K'))
            lines.push_back(Stated(row[0], row[1]));
    lines.push_back(Sentence(IntervalNote));
    if (const std::string hvorslev = lines_->Hvorslev(page); !hvorslev.empty())
        lines.push_back(Sentence(hvorslev));
}

RecordSection RecordMaker::AnalysisOfTest() {
    RecordSection section{"Analysis", {Sentence(MethodLine)}, {}};
    if (diagnostics_ == nullptr) {
        section.lines.push_back(Sentence(NoKLine));
        return section;
    }
    AddCoefficients(section.lines);
    AddStatistics(section.lines);
    std::vector<TextRow> rows = lines_->Windows(diagnostics_->Windows());
    section.table.headings = lines_->WindowHeadings();
    section.table.rowCount = rows.size();
    section.table.hasNumbers = true;
    section.table.row = [rows = std::move(rows)](std::size_t row) { return rows[row]; };
    return section;
}

RecordSection RecordMaker::Checks() {
    RecordSection section{"Checks", {}, {}};
    std::vector<std::string> told; // the warning of a clamped Le/rw is a check too
    if (diagnostics_ != nullptr)
        for (const TextRow& row : lines_->Checks(diagnostics_->Checks())) {
            section.lines.push_back(Sentence(row[0] + " " + row[1] + ": " + row[2]));
            told.push_back(row[2]);
        }
    for (const std::string& message : messages_)
        if (std::find(told.begin(), told.end(), message) == told.end())
            section.lines.push_back(Sentence(message));
    section.lines.push_back(ToFillIn("Departures from the procedure"));
    return section;
}

RecordSection RecordMaker::Signatures() {
    return {"", {ToSign("Prepared by"), ToSign("Reviewed by"), ToFillIn("Signature")}, {}};
}

} // namespace

std::vector<RecordSection> TestRecordSections(const Analysis& analysis,
                                              const std::vector<std::string>& messages) {
    return RecordMaker(analysis, messages).Make();
}

} // namespace quarnel
