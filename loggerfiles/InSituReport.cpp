#include "loggerfiles/InSituReport.h"

#include "loggerfiles/FieldSplitter.h"
#include "loggerfiles/Headings.h"
#include "loggerfiles/HtmlScanner.h"
#include "loggerfiles/LoggerText.h"

#include <algorithm>
#include <charconv>

namespace quarnel {

namespace {

/// A cell of the row that is being read.
struct Cell {
    std::string text;
    std::string_view parameterType;
};

std::string_view TrimAll(std::string_view text) {
    constexpr std::string_view Space = " \t\r\n";
    const std::size_t start = text.find_first_not_of(Space);
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(Space) - start + 1);
}

/// The kind that the parameter type names; nothing for those told by their heading.
std::optional<ChannelKind> KindOfParameter(std::string_view type) {
    if (type == "2" || type == "16")
        return ChannelKind::Pressure;
    if (type == "3")
        return ChannelKind::Level;
    return std::nullopt;
}

class ReportReader {
public:
    ReportReader(std::string_view text, RecordBuilder& builder)
        : text_(text)
        , scanner_(text)
        , builder_(builder)
        , record_(builder.Reading().record)
        , lineEnd_(text.find('\n') == std::string_view::npos ? '\r' : '\n') {}

    void Read() {
        using Part = HtmlScanner::Part;
        while (builder_.GoesOn(scanner_.Read())) {
            const Part part = scanner_.Next();
            if (part == Part::Text) {
                if (inCell_)
                    AppendHtmlText(scanner_.Value(), cells_[cellCount_ - 1].text);
            } else if (part == Part::OpenTag) {
                Open();
            } else if (part == Part::CloseTag) {
                Close();
            } else {
                EndRow();
                return;
            }
        }
    }

private:
    enum class Row { None, Heading, Data, Other };

    bool IsCell() const { return scanner_.Is("TD") || scanner_.Is("TH"); }

    void Open() {
        std::string_view value;
        if (scanner_.Is("TR")) {
            EndRow();
            BeginRow();
        } else if (IsCell() && row_ != Row::None) {
            BeginCell();
        } else if (scanner_.Is("BR") && inCell_) {
            cells_[cellCount_ - 1].text += ' ';
        } else if (scanner_.Is("TABLE")) {
            EndRow();
            headingIsNext_ = scanner_.Attribute("ISI-DATA-TABLE", value);
        }
    }

    void Close() {
        if (scanner_.Is("TR") || scanner_.Is("TABLE"))
            EndRow();
        else if (IsCell())
            inCell_ = false;
    }

    void BeginRow() {
        std::string_view value;
        if (scanner_.Attribute("ISI-DATA-ROW", value))
            row_ = Row::Data;
        else if (scanner_.Attribute("ISI-DATA-TABLE", value) || headingIsNext_)
            row_ = Row::Heading;
        else
            row_ = Row::Other;
        headingIsNext_ = false;
        hasTimestamp_ = false;
        TakeTimestamp();
        const std::string_view passed = text_.substr(counted_, scanner_.Start() - counted_);
        line_ += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), lineEnd_));
        counted_ = scanner_.Start();
    }

    void BeginCell() {
        if (cellCount_ >= MostFields) {
            inCell_ = false;
            return;
        }
        // Cells are used again, so that a row allocates nothing.
        if (cellCount_ == cells_.size())
            cells_.emplace_back();
        Cell& cell = cells_[cellCount_++];
        cell.text.clear();
        inCell_ = true;
        if (row_ == Row::Heading)
            scanner_.Attribute("ISI-PARAMETER-TYPE", cell.parameterType);
        else if (row_ == Row::Data && cellCount_ == 1 && !hasTimestamp_)
            TakeTimestamp();
    }

    void TakeTimestamp() {
        /// So that a difference in microseconds fits.
        constexpr std::int64_t Largest = 4'000'000'000'000'000;
        std::string_view value;
        if (!scanner_.Attribute("ISI-TIMESTAMP", value))
            return;
        value = TrimAll(value);
        const char* end = value.data() + value.size();
        const auto result = std::from_chars(value.data(), end, timestamp_);
        hasTimestamp_ = result.ec == std::errc() && result.ptr == end && timestamp_ < Largest &&
                        timestamp_ > -Largest;
    }

    void EndRow() {
        const Row row = row_;
        row_ = Row::None;
        inCell_ = false;
        if (row == Row::Data)
            TakeData();
        else if (row == Row::Heading && readings_.empty())
            TakeHeadings();
        else if (row != Row::None)
            TakeProperties();
        cellCount_ = 0;
    }

    void TakeHeadings() {
        for (std::size_t i = 0; i < cellCount_; ++i) {
            if (cells_[i].parameterType.empty())
                continue;
            const Heading heading = SplitHeading(TrimAll(cells_[i].text));
            readings_.emplace_back(i,
                                   builder_.AddChannel(heading.name, heading.unit,
                                                       KindOfParameter(cells_[i].parameterType)));
        }
    }

    void TakeData() {
        const std::string_view time = cellCount_ == 0 ? "" : TrimAll(cells_[0].text);
        std::int64_t micros = 0;
        if (!hasParser_)
            ChooseParser(time);
        if (!hasParser_ || !parser_.Parse(time, micros)) {
            builder_.LeaveOut(line_, time);
            return;
        }
        builder_.AddRow(line_, micros);
        if (hasTimestamp_ && !parser_.HadFraction())
            builder_.AddTimestamp(timestamp_);
        for (const auto& [field, channel] : readings_) {
            if (field >= cellCount_)
                break;
            const std::string_view text = TrimAll(cells_[field].text);
            double number = 0;
            if (ParseReading(text, true, number))
                builder_.AddNumber(channel, number);
            else
                builder_.AddNotNumber(channel, text);
        }
    }

    void ChooseParser(std::string_view time) {
        const std::optional<TimeShape> shape = ShapeOfTime(time, true);
        hasParser_ = shape && shape->form != TimeForm::Number && !shape->isDateOnly;
        if (hasParser_)
            parser_ = builder_.ParserFor(shape->form, true, "");
    }

    /// "Location Name = MW-7", in one cell or in two.
    void TakeProperties() {
        for (std::size_t i = 0; i < cellCount_; ++i) {
            const auto [key, value] = KeyAndValue(TrimAll(cells_[i].text));
            const bool isLocation = EqualsIgnoringCase(key, "LOCATION NAME");
            const bool isSerial =
                EqualsIgnoringCase(key, "DEVICE SN") || EqualsIgnoringCase(key, "SERIAL NUMBER");
            if (!isLocation && !isSerial)
                continue;
            std::optional<std::string>& field = isLocation ? record_.location : record_.serial;
            const std::string_view next = i + 1 < cellCount_ ? TrimAll(cells_[i + 1].text) : "";
            const std::string_view found = TrimAll(value.empty() ? next : value);
            if (!field && !found.empty())
                field = found;
        }
    }

    std::string_view text_;
    HtmlScanner scanner_;
    RecordBuilder& builder_;
    LoggerRecord& record_;
    const char lineEnd_;
    std::size_t line_ = 1, counted_ = 0; ///< of the text before `counted_`
    Row row_ = Row::None;
    bool headingIsNext_ = false, inCell_ = false, hasParser_ = false, hasTimestamp_ = false;
    std::int64_t timestamp_ = 0;
    std::vector<Cell> cells_;
    std::size_t cellCount_ = 0;
    std::vector<std::pair<std::size_t, std::size_t>> readings_; ///< cell and channel
    TimeParser parser_;
};

} // namespace

void ReadInSituReport(std::string_view text, RecordBuilder& builder) {
    ReportReader(text, builder).Read();
}

} // namespace quarnel
