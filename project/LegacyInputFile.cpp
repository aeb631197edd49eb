#include "project/CellText.h"
#include "project/Files.h"
#include "project/FixedLists.h"
#include "project/ItemReader.h"
#include "project/ProjectReaders.h"
#include "project/ProjectState.h"
#include "project/Texts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quarnel {

namespace {

/// Bytes of "0 1 0" with a line end.
constexpr std::size_t ShortestRow = 6;

/// The number at the reader's place. A text that is no number is a type mismatch, the file's end is
/// input past the end.
FileFailure NextNumber(ItemReader& reader, double& number) {
    const FileItem item = reader.NextNumberText();
    if (item.atEnd)
        return FileFailure::InputPastEnd;
    const std::optional<double> value = ParseNumber(item.text);
    if (!value)
        return FileFailure::TypeMismatch;
    number = *value;
    return FileFailure::None;
}

/// H, Le, Lw, casing radius, well radius, porosity as a fraction: taken all or none.
FileFailure ReadGeometry(ItemReader& reader, ProjectState& state) {
    std::array<double, 6> numbers{};
    for (double& number : numbers)
        if (const FileFailure failure = NextNumber(reader, number); failure != FileFailure::None)
            return failure;
    reader.NextLine();
    const auto [h, le, lw, casingRadius, wellRadius, porosity] = numbers;
    const std::array<double, 6> entries = {
        h, lw, le, 2 * wellRadius, 2 * casingRadius, porosity * 100};
    if (!std::all_of(entries.begin(), entries.end(), [](double x) { return std::isfinite(x); }))
        return FileFailure::Overflow;
    for (std::size_t i = 0; i < entries.size(); ++i)
        state.WellGeoText[i] = DoubleToText(entries[i], state.DecimalSeparator);
    return FileFailure::None;
}

/// The first of `units` that the heading holds in parentheses, else `otherwise`.
int UnitFromHeading(std::string_view heading,
                    std::initializer_list<std::pair<std::string_view, int>> units, int otherwise) {
    for (const auto& [text, code] : units)
        if (heading.find(text) != std::string_view::npos)
            return code;
    return otherwise;
}

void TakeUnits(std::string_view heading, ProjectState& state) {
    const int time = UnitFromHeading(
        heading, {{"(sec)", Second}, {"(min)", Minute}, {"(hr)", Hour}, {"(day)", Day}}, Second);
    const int length = UnitFromHeading(
        heading, {{"(ft)", Foot}, {"(in)", Inch}, {"(m)", Metre}, {"(cm)", Centimetre}}, Foot);
    state.RecDatTimeUnitsDDL = time;
    state.CmboKTimeUnits = time;
    state.WellGeoVertUnitsDDL = length;
    state.WellGeoRadUnitsDDL = length;
    state.RecDatWaterLevelUnitsDDL = length;
    state.CmboKLengthUnits = Metre;
    state.RecDatDataTypeDDL = ChangeInHead;
    state.RecDatSlugTestTypeDDL = RisingHead;
    state.RecDatPreSlugHeadText.clear();
}

/// Makes room for the rows announced, but never for more than the bytes left can hold; memory not
/// touched costs nothing.
void ReserveRows(double announced, std::size_t bytesLeft, ProjectState& state) {
    const std::size_t most = bytesLeft / ShortestRow + 1;
    if (announced <= 0)
        return;
    const std::size_t rows =
        announced < static_cast<double>(most) ? static_cast<std::size_t>(announced) : most;
    state.RecoveryDataTexts.reserve(rows + EmptyRowsAfterData);
    state.IgnoreKeyList.reserve(rows);
}

/// Row count, heading and rows. The row count only says when to stop.
FileFailure ReadRows(ItemReader& reader, ProjectState& state) {
    double announced = 0;
    if (const FileFailure failure = NextNumber(reader, announced); failure != FileFailure::None)
        return failure;
    if (announced != std::floor(announced))
        return FileFailure::TypeMismatch;
    reader.NextLine();
    if (!reader.HasLine())
        return FileFailure::InputPastEnd;
    TakeUnits(reader.NextLine(), state);
    ReserveRows(announced, reader.BytesLeft(), state);
    for (std::size_t row = 0; static_cast<double>(row) < announced; ++row) {
        double time = 0;
        double y = 0;
        double weight = 0;
        if (const FileFailure failure = NextNumber(reader, time); failure != FileFailure::None)
            return failure;
        const std::string timeText = DoubleToText(time, state.DecimalSeparator);
        state.RecoveryDataTexts.push_back({CellText(timeText), CellText()});
        if (const FileFailure failure = NextNumber(reader, y); failure != FileFailure::None)
            return failure;
        const std::string yText = DoubleToText(y, state.DecimalSeparator);
        state.RecoveryDataTexts.back().level = CellText(yText);
        if (const FileFailure failure = NextNumber(reader, weight); failure != FileFailure::None)
            return failure;
        if (weight < 1.0)
            state.IgnoreKeyList.push_back(timeText + yText);
    }
    return FileFailure::None;
}

} // namespace

void ReadLegacyInputFile(ItemReader& reader, const std::array<std::string_view, 5>& firstLines,
                         ProjectState& state, ReadReport& report) {
    ResetProjectState(state);
    report.format = FileFormat::Legacy;
    state.PlotText[0] = TrimBlanks(firstLines[0]);
    state.SiteIDText[ClientName] = TrimBlanks(firstLines[1]);
    state.SiteIDText[ClientJobNumber] = TrimBlanks(firstLines[2]);
    state.WellTestIDTxt[WellLabel] = TrimBlanks(firstLines[3]);
    FileFailure failure = ReadGeometry(reader, state);
    if (failure == FileFailure::None) {
        reader.NextLine();
        failure = ReadRows(reader, state);
    }
    report.AddFailure(failure);
    FillRecoveryGridFromData(state);
}

} // namespace quarnel
