#include "output/SummaryReport.h"

#include "kcompute/UseIgnore.h"
#include "project/TextEncoding.h"
#include "project/Texts.h"
#include "recovery/RecoveryDa.h"

#include <algorithm>

namespace quarnel {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view SeparatorLine = "    ";
/// Where the columns of the point table begin, counted from 1.
constexpr std::array<std::size_t, 5> TableColumns = {1, 15, 35, 50, 65};
/// Texts that the computation keeps and that have never held anything.
constexpr int UnusedLines = 3;

std::string Trimmed(const std::string& text) {
    return std::string(TrimBlanks(text));
}

void AddIfPresent(std::vector<std::string>& lines, std::string_view label, std::string text) {
    if (!text.empty())
        lines.push_back(std::string(label) + std::move(text));
}

std::string JoinPresent(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) {
        if (text.empty())
            continue;
        joined += (joined.empty() ? "" : ", ") + text;
    }
    return joined;
}

/// City, state and postal code; a missing city leaves the line beginning with ", ".
std::string PlaceLine(const ProjectState& state, SiteIDIndex city, SiteIDIndex region,
                      SiteIDIndex zip) {
    std::string line = Trimmed(state.SiteIDText[city]);
    for (const SiteIDIndex index : {region, zip}) {
        const std::string text = Trimmed(state.SiteIDText[index]);
        if (!text.empty())
            line += ", " + text;
    }
    return line;
}

/// The two registrations of a site. The second one has a colon only where it stands alone.
std::string RegistrationLine(const ProjectState& state) {
    const std::string lust = Trimmed(state.SiteIDText[LustNo]);
    const std::string ust = Trimmed(state.SiteIDText[UstNo]);
    std::string line = lust.empty() ? "" : "LUST No. " + lust;
    if (!ust.empty())
        line += (line.empty() ? "UST Registration No.: " : "    UST Registration No. ") + ust;
    return line;
}

ReportBlock SiteBlock(const ProjectState& state) {
    ReportBlock block{"SITE", {}};
    AddIfPresent(block.lines, "", Trimmed(state.SiteIDText[SiteName]));
    AddIfPresent(block.lines, "", Trimmed(state.SiteIDText[SiteAddress]));
    AddIfPresent(block.lines, "", PlaceLine(state, SiteCity, SiteState, SiteZip));
    AddIfPresent(block.lines, "", RegistrationLine(state));
    return block;
}

ReportBlock ClientBlock(const ProjectState& state) {
    ReportBlock block{"CLIENT", {}};
    AddIfPresent(block.lines, "", Trimmed(state.SiteIDText[ClientName]));
    AddIfPresent(block.lines, "", Trimmed(state.SiteIDText[ClientAddress]));
    AddIfPresent(block.lines, "", PlaceLine(state, ClientCity, ClientState, ClientZip));
    AddIfPresent(block.lines, "Job/Account: ", Trimmed(state.SiteIDText[ClientJobNumber]));
    return block;
}

ReportBlock ConsultantBlock(const ProjectState& state) {
    ReportBlock block{"CONSULTANT", {}};
    AddIfPresent(block.lines, "", Trimmed(state.SiteIDText[ConsultantName]));
    AddIfPresent(block.lines, "", Trimmed(state.SiteIDText[ConsultantAddress]));
    AddIfPresent(block.lines, "", PlaceLine(state, ConsultantCity, ConsultantState, ConsultantZip));
    AddIfPresent(block.lines, "Certified Groundwater Professional: ",
                 JoinPresent({Trimmed(state.SiteIDText[ProfessionalName]),
                              Trimmed(state.SiteIDText[CertificationNo])}));
    return block;
}

ReportBlock SlugTestBlock(const ProjectState& state, const ComputedValues& computed) {
    const auto& texts = state.WellTestIDTxt;
    ReportBlock block{"SLUG TEST", {KLine(state, computed)}};
    AddIfPresent(block.lines, "Monitoring Well: ", Trimmed(texts[WellLabel]));
    AddIfPresent(block.lines, "Test Date: ", Trimmed(texts[TestDate]));
    AddIfPresent(
        block.lines, "Field Testing by: ",
        JoinPresent({Trimmed(texts[TestBy1]), Trimmed(texts[TestBy2]), Trimmed(texts[TestBy3])}));
    AddIfPresent(block.lines, "Test Analysis by: ", Trimmed(texts[AnalysisBy]));
    return block;
}

ReportBlock GeometryBlock(const ProjectState& state, const ComputationDetails& details) {
    // Before a computation there is nothing for the comma to part.
    const std::string_view comma = details.isFilled ? ",  " : "";
    return {"WELL GEOMETRY",
            {details.hLine, details.lwLine, details.leLine,
             details.dwLine + std::string(comma) + details.rwLine,
             details.dcLine + std::string(comma) + details.rcLine, details.porosityLine,
             details.reLine, "Slug Volume(L): " + Trimmed(state.VolumeOfSlugText)}};
}

/// Characters of a UTF-8 text: every byte that does not continue a character.
std::size_t CharacterCount(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    }));
}

void AppendRow(std::string& text, const ReportRow& row) {
    std::size_t written = 0;
    for (std::size_t column = 0; column < row.size(); ++column) {
        const std::size_t start = TableColumns[column] - 1;
        // A text that leaves no room before its neighbour's column is parted from it by one blank.
        const std::size_t blanks = written < start ? start - written : (column == 0 ? 0 : 1);
        text.append(blanks, ' ').append(row[column]);
        written += blanks + CharacterCount(row[column]);
    }
    text += LineEnd;
}

void AppendLine(std::string& text, std::string_view line) {
    text.append(line).append(LineEnd);
}

} // namespace

std::vector<ReportBlock> SummaryReportBlocks(const ProjectState& state,
                                             const ComputedValues& computed,
                                             const ComputationDetails& details) {
    return {SiteBlock(state),
            ClientBlock(state),
            ConsultantBlock(state),
            SlugTestBlock(state, computed),
            GeometryBlock(state, details),
            {"BOUWER-RICE COEFFICIENTS",
             {details.leOverRwLine, details.aLine, details.bLine, details.cLine,
              details.lnReOverRwLine}},
            {"LEAST SQUARES BEST FIT",
             {"Ln(Y)-cm versus Time-sec", details.slopeLine, details.interceptLine}}};
}

ReportRow ReportTableHeadings(const ProjectState& state, const ComputationDetails& details) {
    const bool kept = details.isFilled;
    const std::string time(kept ? details.timeUnitName
                                : NameAt(TimeUnitNames, state.RecDatTimeUnitsDDL));
    const std::string level(kept ? details.levelUnitName
                                 : NameAt(LengthUnitNames, state.RecDatWaterLevelUnitsDDL));
    const std::string letter(kept ? details.dataTypeLetter
                                  : NameAt(DataTypeLetters, state.RecDatDataTypeDDL));
    return {"Time (" + time + ")", letter + "(" + level + ")", "Fit Criteria", "Y(" + level + ")",
            "Fit Y(" + level + ")"};
}

ReportRow ReportTableRow(const ComputationDetails& details, std::size_t point) {
    const RecoveryPoint& kept = (*details.points)[point];
    return {kept.timeText.ToString(), kept.levelText.ToString(),
            std::string(details.used[point] != 0 ? UseMark : IgnoreMark), YText(kept),
            FittedYText(details, point)};
}

std::string SummaryReportText(const ProjectState& state, const ComputedValues& computed,
                              const ComputationDetails& details) {
    constexpr std::size_t BytesPerRow = 80;
    std::string text;
    text.reserve(4096 + details.points->size() * BytesPerRow);
    AppendLine(text, ReportTitle);
    AppendLine(text, SeparatorLine);
    for (const ReportBlock& block : SummaryReportBlocks(state, computed, details)) {
        AppendLine(text, block.heading);
        for (const std::string& line : block.lines)
            AppendLine(text, line);
        AppendLine(text, SeparatorLine);
    }
    for (int line = 0; line < UnusedLines; ++line)
        AppendLine(text, "");
    AppendLine(text, SeparatorLine);
    AppendRow(text, ReportTableHeadings(state, details));
    for (std::size_t point = 0; point < details.points->size(); ++point)
        AppendRow(text, ReportTableRow(details, point));
    return text;
}

std::string ReportBytes(const Analysis& analysis) {
    return EncodeFileText(SummaryReportText(analysis.state, analysis.computed, analysis.details));
}

} // namespace quarnel
