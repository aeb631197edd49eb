#include "output/SummaryReport.h"

#include "kcompute/ComputationDetails.h"
#include "kcompute/KText.h"
#include "kcompute/UseIgnore.h"
#include "project/TextColumns.h"
#include "project/TextEncoding.h"
#include "project/Texts.h"
#include "recovery/RecoveryDa.h"
#include "recovery/RecoveryData.h"

#include <algorithm>
#include <utility>

namespace quarnel {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view SeparatorLine = "    ";
/// Where the columns of the point table begin, counted from 0.
constexpr std::array<std::size_t, 5> TableColumns = {0, 14, 34, 49, 64};
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

ReportBlock SlugTestBlock(const ProjectState& state, const Computation* computation) {
    const auto& texts = state.WellTestIDTxt;
    ReportBlock block{"SLUG TEST", {KLine(state, computation)}};
    AddIfPresent(block.lines, "Monitoring Well: ", Trimmed(texts[WellLabel]));
    AddIfPresent(block.lines, "Test Date: ", Trimmed(texts[TestDate]));
    AddIfPresent(
        block.lines, "Field Testing by: ",
        JoinPresent({Trimmed(texts[TestBy1]), Trimmed(texts[TestBy2]), Trimmed(texts[TestBy3])}));
    AddIfPresent(block.lines, "Test Analysis by: ", Trimmed(texts[AnalysisBy]));
    return block;
}

std::string SlugVolumeLine(const ProjectState& state) {
    return "Slug Volume(L): " + Trimmed(state.VolumeOfSlugText);
}

void AddComputationBlocks(const ProjectState& state, const Computation& computation,
                          std::vector<ReportBlock>& blocks) {
    const ComputationLines lines(computation);
    blocks.push_back(
        {"WELL GEOMETRY",
         {lines.h, lines.lw, lines.le, lines.dw + ",  " + lines.rw, lines.dc + ",  " + lines.rc,
          lines.porosity, lines.re, SlugVolumeLine(state)}});
    blocks.push_back({"BOUWER-RICE COEFFICIENTS",
                      {lines.leOverRw, lines.a, lines.b, lines.c, lines.lnReOverRw}});
    blocks.push_back(
        {"LEAST SQUARES BEST FIT", {"Ln(Y)-cm versus Time-sec", lines.slope, lines.intercept}});
}

/// The same blocks before a computation: each of its lines is there, and empty.
void AddEmptyBlocks(const ProjectState& state, std::vector<ReportBlock>& blocks) {
    blocks.push_back({"WELL GEOMETRY", {"", "", "", "", "", "", "", SlugVolumeLine(state)}});
    blocks.push_back({"BOUWER-RICE COEFFICIENTS", {"", "", "", "", ""}});
    blocks.push_back({"LEAST SQUARES BEST FIT", {"Ln(Y)-cm versus Time-sec", "", ""}});
}

void AppendRow(std::string& text, const ReportRow& row) {
    AppendReportRow(text, row);
    text += LineEnd;
}

void AppendLine(std::string& text, std::string_view line) {
    text.append(line).append(LineEnd);
}

} // namespace

std::vector<ReportBlock> SummaryReportBlocks(const ProjectState& state,
                                             const Computation* computation) {
    std::vector<ReportBlock> blocks = {SiteBlock(state), ClientBlock(state), ConsultantBlock(state),
                                       SlugTestBlock(state, computation)};
    if (computation != nullptr)
        AddComputationBlocks(state, *computation, blocks);
    else
        AddEmptyBlocks(state, blocks);
    return blocks;
}

ReportRow ReportTableHeadings(const ProjectState& state, const Computation* computation) {
    const PointHeadings headings(state, computation);
    return {headings.time, headings.reading, headings.criteria, headings.y, headings.fitY};
}

ReportRow ReportTableRow(const Computation& computation, std::size_t point) {
    const RecoveryPoint& made = (*computation.recovery.RecoveryPoints)[point];
    return {made.timeText.ToString(), made.levelText.ToString(),
            std::string(MarkText(computation.marks[point])), YText(made),
            FittedYText(computation, point)};
}

void AppendReportRow(std::string& text, const ReportRow& row) {
    AppendInColumns(text, TableColumns, {row[0], row[1], row[2], row[3], row[4]});
}

std::size_t ReportTableSize(const Computation* computation) {
    return computation != nullptr ? computation->recovery.RecoveryPoints->size() : 0;
}

std::string SummaryReportText(const ProjectState& state, const Computation* computation) {
    constexpr std::size_t BytesPerRow = 80;
    const std::size_t rows = ReportTableSize(computation);
    std::string text;
    text.reserve(4096 + rows * BytesPerRow);
    AppendLine(text, ReportTitle);
    AppendLine(text, SeparatorLine);
    for (const ReportBlock& block : SummaryReportBlocks(state, computation)) {
        AppendLine(text, block.heading);
        for (const std::string& line : block.lines)
            AppendLine(text, line);
        AppendLine(text, SeparatorLine);
    }
    for (int line = 0; line < UnusedLines; ++line)
        AppendLine(text, "");
    AppendLine(text, SeparatorLine);
    AppendRow(text, ReportTableHeadings(state, computation));
    for (std::size_t point = 0; point < rows; ++point)
        AppendRow(text, ReportTableRow(*computation, point));
    return text;
}

std::string ReportBytes(const ProjectState& state, const Computation* computation) {
    return EncodeFileText(SummaryReportText(state, computation));
}

} // namespace quarnel
