#include "loggerfiles/TextTable.h"

#include "loggerfiles/Headings.h"
#include "loggerfiles/Recognise.h"
#include "loggerfiles/TableRows.h"
#include "loggerfiles/WaterUnits.h"
#include "project/Texts.h"

#include <algorithm>

namespace quarnel {

namespace {

using Fields = std::vector<std::string_view>;

constexpr char Delimiters[] = {'\t', ';', ',', BlankRuns};

/// How many lines must agree on a delimiter.
constexpr std::size_t AgreeingLines = 20;

/// A line of the part that the table is recognised by.
struct HeadLine {
    std::string_view text;
    LineReader behind; ///< goes on below the line
};

bool HasDigit(std::string_view line) {
    return line.find_first_of("0123456789") != std::string_view::npos;
}

bool IsNumber(std::string_view field, bool comma) {
    double value = 0;
    return ParseReading(field, comma, value);
}

std::vector<HeadLine> HeadLines(std::string_view text) {
    std::vector<HeadLine> lines;
    const std::size_t size = HeadOf(text).size();
    LineReader reader(text);
    std::string_view line;
    while (reader.Read() < size && reader.Next(line))
        if (!TrimSpace(line).empty())
            lines.push_back({line, reader});
    return lines;
}

std::size_t CountNumbers(const Fields& fields, bool comma) {
    return static_cast<std::size_t>(
        std::count_if(fields.begin(), fields.end(),
                      [&](std::string_view field) { return IsNumber(field, comma); }));
}

/// Whether a row has a time and at least one other number. With `onlyClock` the time must be a date
/// or a clock time.
bool IsRow(const Fields& fields, bool comma, bool onlyClock) {
    if (FindTime(fields, comma))
        return CountNumbers(fields, comma) > 0;
    return !onlyClock && CountNumbers(fields, comma) > 1;
}

/// Whether a field holds two numbers with a blank between: then commas are decimal signs, and
/// blanks part the fields.
bool HoldsTwoNumbers(std::string_view field) {
    Fields parts;
    SplitFields(field, BlankRuns, parts, 3);
    return parts.size() > 1 && CountNumbers(parts, false) == parts.size();
}

/// What cuts the table's lines, and into how many fields.
struct Cut {
    char delimiter = ',';
    std::size_t fields = 0;
};

/// Whether a row that `delimiter` cuts into `fields` is one of a table.
bool IsRowCutBy(char delimiter, const Fields& fields) {
    return fields.size() >= 2 && IsRow(fields, delimiter != ',', false) &&
           (delimiter != ',' || std::none_of(fields.begin(), fields.end(), HoldsTwoNumbers));
}

/// The cut that `delimiter` makes of each of `count` lines from `first` on, or none.
std::optional<Cut> CommonCut(char delimiter, const std::vector<std::string_view>& lines,
                             std::size_t first, std::size_t count) {
    std::size_t common = 0;
    bool hasRow = false;
    Fields fields;
    for (std::size_t i = first; i < first + count; ++i) {
        SplitFields(lines[i], delimiter, fields);
        if (fields.size() < 2 || (common > 0 && fields.size() != common))
            return std::nullopt;
        common = fields.size();
        hasRow = hasRow || IsRowCutBy(delimiter, fields);
    }
    return hasRow ? std::optional<Cut>({delimiter, common}) : std::nullopt;
}

/// The cut that makes the most rows of equally many fields.
std::optional<Cut> MostCommonCut(const std::vector<std::string_view>& lines) {
    std::optional<Cut> best;
    std::size_t most = 0;
    Fields fields;
    for (const char delimiter : Delimiters) {
        std::vector<std::size_t> rowsOf(MostFields + 1, 0);
        for (const std::string_view line : lines) {
            SplitFields(line, delimiter, fields);
            if (IsRowCutBy(delimiter, fields))
                ++rowsOf[fields.size()];
        }
        const auto largest = std::max_element(rowsOf.begin(), rowsOf.end());
        if (*largest <= most)
            continue;
        most = *largest;
        best = Cut{delimiter, static_cast<std::size_t>(largest - rowsOf.begin())};
    }
    return best;
}

/// The first cut that twenty lines with digits in a row have in common: lines above the table may
/// hold digits too. A shorter table, with a comment or a cut line in it, goes by most of its rows.
std::optional<Cut> FindCut(const std::vector<HeadLine>& head) {
    std::vector<std::string_view> lines;
    for (const HeadLine& line : head)
        if (HasDigit(line.text))
            lines.push_back(line.text);
    const std::size_t count = std::min(AgreeingLines, lines.size());
    for (std::size_t first = 0; first + count <= lines.size() && count > 0; ++first)
        for (const char delimiter : Delimiters)
            if (const std::optional<Cut> cut = CommonCut(delimiter, lines, first, count))
                return cut;
    return MostCommonCut(lines);
}

/// The table as it is found in the head.
class TableFinder {
public:
    TableFinder(const std::vector<HeadLine>& head, const Cut& cut)
        : head_(head)
        , cut_(cut) {
        layout_.delimiter = cut.delimiter;
        layout_.comma = HasDecimalComma();
        const bool clock = std::any_of(head.begin(), head.end(), [this](const HeadLine& line) {
            return HasAllFields(line) && FindTime(fields_, layout_.comma);
        });
        while (firstRow_ < head.size() &&
               !(HasAllFields(head[firstRow_]) && IsRow(fields_, layout_.comma, clock)))
            ++firstRow_;
        if (!HasRows())
            return;
        FindHeadings();
        FindColumns();
    }

    bool HasRows() const { return firstRow_ < head_.size(); }

    void Read(std::string_view text, RecordBuilder& builder) {
        for (const std::size_t field : readings_) {
            const Heading parts = HeadingOf(field);
            layout_.readings.push_back({field, builder.AddChannel(parts.name, parts.unit)});
        }
        layout_.timeHeading = timeHeading_;
        LineReader lines = firstRow_ == 0 ? LineReader(text) : head_[firstRow_ - 1].behind;
        ReadTableRows(lines, layout_, builder);
    }

private:
    bool HasAllFields(const HeadLine& line) {
        SplitFields(line.text, cut_.delimiter, fields_);
        return fields_.size() == cut_.fields;
    }

    bool HasDecimalComma() {
        if (cut_.delimiter == ',')
            return false;
        bool hasComma = false;
        for (const HeadLine& line : head_) {
            if (!HasAllFields(line))
                continue;
            for (const std::string_view field : fields_) {
                const bool isNumber = IsNumber(field, false);
                if (isNumber && field.find('.') != std::string_view::npos)
                    return false;
                hasComma |= !isNumber && IsNumber(field, true);
            }
        }
        return hasComma;
    }

    static bool IsUnitText(const std::string& text) {
        return KnownWaterUnit(text) || IsTemperatureUnit(text) ||
               (TimeUnitOfHeading(text) && text.size() <= 8);
    }

    std::vector<std::string> FieldsAbove(std::size_t line) {
        std::vector<std::string> texts;
        if (line < head_.size() && HasAllFields(head_[line]))
            for (const std::string_view field : fields_)
                texts.push_back(FieldText(field));
        return texts;
    }

    /// The heading is the line above the first row; where that holds only units, the one above it.
    void FindHeadings() {
        names_ = FieldsAbove(firstRow_ - 1);
        units_.assign(cut_.fields, "");
        const bool onlyUnits =
            !names_.empty() && std::all_of(names_.begin(), names_.end(), [](const auto& text) {
                return text.empty() || IsUnitText(text);
            });
        if (onlyUnits && firstRow_ > 1) {
            std::vector<std::string> above = FieldsAbove(firstRow_ - 2);
            if (!above.empty()) {
                units_ = std::move(names_);
                names_ = std::move(above);
            }
        }
        names_.resize(cut_.fields);
        if (!names_[0].empty() && names_[0][0] == '#' && names_[0].size() > 1)
            names_[0] = TrimSpace(std::string_view(names_[0]).substr(1));
    }

    bool NamesTime(std::size_t field) const {
        return ContainsIgnoringCase(names_[field], "TIME") ||
               ContainsIgnoringCase(names_[field], "ELAPSED");
    }

    /// Whether the first rows begin with 1, 2, 3.
    bool CountsRows() {
        double expected = 1;
        for (std::size_t i = firstRow_; i < head_.size() && expected <= 3; ++i) {
            double value = 0;
            if (!HasAllFields(head_[i]))
                continue;
            if (!ParseReading(fields_[0], layout_.comma, value) || value != expected)
                return false;
            ++expected;
        }
        return true;
    }

    /// Whether the first column, of 1, 2, 3, is an index: a time follows it.
    bool HasIndex() {
        if (!CountsRows() || cut_.fields < 3)
            return false;
        if (NamesTime(0))
            return false;
        constexpr std::string_view IndexNames[] = {"#",   "NO",    "NO.",    "NR",
                                                   "NR.", "INDEX", "RECORD", "ROW"};
        const bool isNamed = std::any_of(
            std::begin(IndexNames), std::end(IndexNames),
            [this](std::string_view name) { return EqualsIgnoringCase(names_[0], name); });
        return isNamed || NamesTime(1);
    }

    void FindColumns() {
        HasAllFields(head_[firstRow_]);
        std::size_t firstReading = 0;
        if (const auto clock = FindTime(fields_, layout_.comma)) {
            layout_.time = *clock;
            firstReading = clock->time > 0 && CountsRows() ? 1 : 0;
        } else {
            firstReading = HasIndex() ? 1 : 0;
            layout_.time.time = NumberTimeColumn(firstReading);
        }
        timeHeading_ = names_[layout_.time.time] + " " + units_[layout_.time.time];
        for (std::size_t i = firstReading; i < cut_.fields; ++i)
            if (i < layout_.time.time || i >= layout_.time.End())
                readings_.push_back(i);
    }

    /// The column of times that are plain numbers: the one that says so, else the first.
    std::size_t NumberTimeColumn(std::size_t first) {
        HasAllFields(head_[firstRow_]);
        for (std::size_t i = first; i < cut_.fields; ++i)
            if (NamesTime(i) && IsNumber(fields_[i], layout_.comma))
                return i;
        return first;
    }

    Heading HeadingOf(std::size_t field) const {
        Heading parts = SplitHeading(names_[field]);
        if (!units_[field].empty())
            parts = {names_[field], units_[field]};
        if (parts.name.empty())
            parts.name = "Column " + std::to_string(field + 1);
        return parts;
    }

    const std::vector<HeadLine>& head_;
    const Cut cut_;
    TableLayout layout_;
    Fields fields_;
    std::size_t firstRow_ = 0;
    std::vector<std::string> names_, units_; ///< one a field, "" where there is none
    std::string timeHeading_;
    std::vector<std::size_t> readings_; ///< their fields
};

} // namespace

void ReadTextTable(std::string_view text, RecordBuilder& builder) {
    const std::vector<HeadLine> head = HeadLines(text);
    const std::optional<Cut> cut = FindCut(head);
    if (!cut)
        return;
    TableFinder table(head, *cut);
    if (table.HasRows())
        table.Read(text, builder);
}

} // namespace quarnel
