#include "project/CellText.h"
#include "project/FieldTables.h"
#include "project/Files.h"
#include "project/ItemReader.h"
#include "project/ProjectReaders.h"
#include "project/ProjectState.h"
#include "project/TextColumns.h"
#include "project/Texts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnel {

namespace {

constexpr std::size_t PassedOverKept = 100;
constexpr std::size_t PassedOverBytes = 80;
/// Bytes of "RECDATA","DATAPOINT","0","1" with its line end: about the shortest record of a
/// reading.
constexpr std::size_t ShortDataPoint = 31;

/// How the record of a reading starts in every file that this program wrote.
constexpr std::string_view DataPointStart = "\"RECDATA\",\"DATAPOINT\",";

bool EqualsIgnoringCase(std::string_view text, std::string_view upperCaseWord) {
    return text == upperCaseWord ||
           (text.size() == upperCaseWord.size() && ContainsIgnoringCase(text, upperCaseWord));
}

/// One reading of a project file. Each section routine returns why it stopped, None when it read
/// all.
class ProjectFileReader {
public:
    ProjectFileReader(ItemReader& reader, std::string_view wholeText, ProjectState& state,
                      ReadReport& report)
        : reader_(reader)
        , wholeText_(wholeText)
        , state_(state)
        , report_(report) {}

    void ReadSections();

private:
    FileFailure ReadSection(std::string_view keyword, bool& known);
    FileFailure ReadWellGeo();
    FileFailure ReadRecData();
    FileFailure ReadDataPoint();
    FileFailure ReadLsWeight();
    FileFailure ReadWellId();
    FileFailure ReadSiteId();
    FileFailure ReadPlotInfo();

    FileFailure NextText(std::string_view& text);
    FileFailure UnknownKey(std::string_view key);
    FileFailure NextTrimmedUpper(std::string& key);
    FileFailure ReadInto(std::string& field, bool trimmed);
    FileFailure ReadPosition(const ListField& list, int lowest);
    FileFailure ReadNamedPosition(const ListField& list);
    FileFailure ReadPicture();
    void PassOver(std::string_view item, std::size_t position);

    ItemReader& reader_;
    std::string_view wholeText_;
    ProjectState& state_;
    ReadReport& report_;
    std::size_t countedLines_ = 1;
    std::size_t countedTo_ = 0;
    std::size_t itemPosition_ = 0;
};

void ProjectFileReader::ReadSections() {
    while (!reader_.AtEnd()) {
        if (reader_.SkipExactly(DataPointStart)) { // nearly every line of a long file
            report_.AddFailure(ReadDataPoint());
            continue;
        }
        const std::size_t position = reader_.Position();
        std::string_view item;
        const FileFailure cut = NextText(item);
        item = TrimBlanks(item);
        report_.AddFailure(cut);
        bool known = true;
        report_.AddFailure(ReadSection(item, known));
        if (!known)
            PassOver(item, position);
    }
}

FileFailure ProjectFileReader::ReadSection(std::string_view keyword, bool& known) {
    if (EqualsIgnoringCase(keyword, RecDataSection))
        return ReadRecData();
    if (EqualsIgnoringCase(keyword, IgnoreKeySection))
        return ReadLsWeight();
    if (EqualsIgnoringCase(keyword, WellGeoSection))
        return ReadWellGeo();
    if (EqualsIgnoringCase(keyword, WellIDSection))
        return ReadWellId();
    if (EqualsIgnoringCase(keyword, SiteIDSection))
        return ReadSiteId();
    if (EqualsIgnoringCase(keyword, PlotInfoSection))
        return ReadPlotInfo();
    known = false;
    return FileFailure::None;
}

/// Notes an item that no field took. The version and the closing word belong to the format.
void ProjectFileReader::PassOver(std::string_view item, std::size_t position) {
    if (item.empty() || EqualsIgnoringCase(item, "VERSION") || item == "3.0" ||
        EqualsIgnoringCase(item, "END OF FILE") || EqualsIgnoringCase(item, "QUARNEL PROJECT FILE"))
        return;
    ++report_.passedOverCount;
    if (report_.passedOver.size() >= PassedOverKept)
        return;
    for (; countedTo_ < position; ++countedTo_) {
        const char c = wholeText_[countedTo_];
        const bool pair = c == '\r' && wholeText_[countedTo_ + 1] == '\n';
        countedLines_ += (c == '\n' || (c == '\r' && !pair)) ? 1U : 0U;
    }
    report_.passedOver.push_back(
        {countedLines_, std::string(WholeCharacters(item, PassedOverBytes))});
}

FileFailure ProjectFileReader::NextText(std::string_view& text) {
    itemPosition_ = reader_.Position();
    const FileItem item = reader_.NextItem();
    text = item.text;
    return item.atEnd || item.cut ? FileFailure::InputPastEnd : FileFailure::None;
}

/// An unknown key consumes only itself; its values reach the main loop.
FileFailure ProjectFileReader::UnknownKey(std::string_view key) {
    PassOver(key, itemPosition_);
    return FileFailure::None;
}

FileFailure ProjectFileReader::NextTrimmedUpper(std::string& key) {
    std::string_view text;
    const FileFailure failure = NextText(text);
    key = UpperCaseAscii(TrimBlanks(text));
    return failure;
}

FileFailure ProjectFileReader::ReadInto(std::string& field, bool trimmed) {
    const FileItem item = reader_.NextItem();
    if (!item.atEnd)
        field = trimmed ? TrimBlanks(item.text) : item.text;
    return item.atEnd || item.cut ? FileFailure::InputPastEnd : FileFailure::None;
}

FileFailure ProjectFileReader::ReadPosition(const ListField& list, int lowest) {
    const FileItem item = reader_.NextItem();
    if (item.atEnd)
        return FileFailure::InputPastEnd;
    const std::optional<double> number = ParseNumber(item.text);
    if (!number)
        return item.cut ? FileFailure::InputPastEnd : FileFailure::TypeMismatch;
    if (*number != std::floor(*number) || *number < lowest ||
        *number >= static_cast<double>(list.names.size()))
        return FileFailure::InvalidPropertyValue;
    state_.*list.position = static_cast<int>(*number);
    return item.cut ? FileFailure::InputPastEnd : FileFailure::None;
}

FileFailure ProjectFileReader::ReadNamedPosition(const ListField& list) {
    std::string_view name; // informative only: the position counts
    const FileFailure failure = NextText(name);
    if (failure != FileFailure::None)
        return failure;
    return ReadPosition(list, 0);
}

FileFailure ProjectFileReader::ReadPicture() {
    const FileItem item = reader_.NextItem();
    if (item.atEnd)
        return FileFailure::InputPastEnd;
    const std::optional<double> number = ParseNumber(item.text);
    if (!number)
        return item.cut ? FileFailure::InputPastEnd : FileFailure::TypeMismatch;
    state_.SSRibbon1Pressed = *number != 2;
    return item.cut ? FileFailure::InputPastEnd : FileFailure::None;
}

FileFailure ProjectFileReader::ReadWellGeo() {
    std::string key;
    if (const FileFailure failure = NextTrimmedUpper(key); failure != FileFailure::None)
        return failure;
    for (std::size_t i = 0; i < WellGeoFields.size(); ++i)
        if (key == WellGeoFields[i].key)
            return ReadInto(state_.WellGeoText[i], true);
    for (const ListField& list : WellGeoLists)
        if (key == list.key)
            return ReadNamedPosition(list);
    if (key == PictureKey)
        return ReadPicture();
    return UnknownKey(key);
}

FileFailure ProjectFileReader::ReadRecData() {
    std::string_view text;
    if (const FileFailure failure = NextText(text); failure != FileFailure::None)
        return failure;
    const std::string_view key = TrimBlanks(text);
    if (EqualsIgnoringCase(key, DataPointKey))
        return ReadDataPoint();
    for (const ListField& list : RecDataLists)
        if (EqualsIgnoringCase(key, list.key))
            return ReadNamedPosition(list);
    if (EqualsIgnoringCase(key, PreSlugKey))
        return ReadInto(state_.RecDatPreSlugHeadText, true);
    return UnknownKey(key);
}

FileFailure ProjectFileReader::ReadDataPoint() {
    std::vector<RecoveryRow>& rows = state_.RecoveryDataTexts;
    if (rows.empty()) // guessed from the file's own length; memory not touched costs nothing
        rows.reserve(reader_.BytesLeft() / ShortDataPoint + EmptyRowsAfterData + 1);
    const FileItem time = reader_.NextItem();
    if (time.atEnd)
        return FileFailure::InputPastEnd;
    rows.emplace_back().time.Set(TrimBlanks(time.text));
    if (time.cut)
        return FileFailure::InputPastEnd;
    const FileItem level = reader_.NextItem();
    rows.back().level.Set(TrimBlanks(level.text));
    return level.atEnd || level.cut ? FileFailure::InputPastEnd : FileFailure::None;
}

FileFailure ProjectFileReader::ReadLsWeight() {
    const FileItem item = reader_.NextItem();
    if (item.atEnd)
        return FileFailure::InputPastEnd;
    state_.IgnoreKeyList.emplace_back(item.text);
    return item.cut ? FileFailure::InputPastEnd : FileFailure::None;
}

FileFailure ProjectFileReader::ReadWellId() {
    std::string_view key;
    if (const FileFailure failure = NextText(key); failure != FileFailure::None)
        return failure;
    for (const IdentificationField& field : WellTestIDFields)
        if (key == field.key)
            return ReadInto(state_.WellTestIDTxt[static_cast<std::size_t>(field.index)], false);
    if (key == SlugVolumeKey)
        return ReadInto(state_.VolumeOfSlugText, false);
    return UnknownKey(key);
}

FileFailure ProjectFileReader::ReadSiteId() {
    std::string_view key;
    if (const FileFailure failure = NextText(key); failure != FileFailure::None)
        return failure;
    for (const IdentificationField& field : SiteIDFields)
        if (key == field.key)
            return ReadInto(state_.SiteIDText[static_cast<std::size_t>(field.index)], false);
    return UnknownKey(key);
}

FileFailure ProjectFileReader::ReadPlotInfo() {
    std::string key;
    if (const FileFailure failure = NextTrimmedUpper(key); failure != FileFailure::None)
        return failure;
    for (std::size_t i = 0; i < PlotTitleKeys.size(); ++i)
        if (key == PlotTitleKeys[i])
            return ReadInto(state_.PlotText[i], false);
    for (const ListField& list : PlotInfoLists)
        if (key == list.key)
            return ReadPosition(list, -1);
    return UnknownKey(key);
}

} // namespace

void ReadProjectFile(ItemReader& reader, std::string_view wholeText, ProjectState& state,
                     ReadReport& report) {
    ResetProjectState(state);
    report.format = FileFormat::Current;
    ProjectFileReader(reader, wholeText, state, report).ReadSections();
    FillRecoveryGridFromData(state);
}

} // namespace quarnel
