#include "loggerfiles/XleReader.h"

#include "loggerfiles/FieldSplitter.h"
#include "loggerfiles/LoggerText.h"
#include "loggerfiles/RecordBuilder.h"

#include <QXmlStreamReader>
#include <algorithm>

namespace quarnel {

namespace {

constexpr int MostChannels = 100;

/// The number behind "ch" of "ch1" or "Ch1_data_header", 0 where there is none.
int ChannelNumber(QStringView name, QLatin1String behind) {
    if (name.size() < 3 || !name.startsWith(QLatin1String("ch"), Qt::CaseInsensitive) ||
        !name.endsWith(behind, Qt::CaseInsensitive))
        return 0;
    int number = 0;
    for (const QChar c : name.mid(2, name.size() - 2 - behind.size())) {
        if (c < u'0' || c > u'9' || number > MostChannels)
            return 0;
        number = number * 10 + (c.unicode() - u'0');
    }
    return number <= MostChannels ? number : 0;
}

/// A channel as far as the file has named it.
struct XleChannel {
    int number = 0;
    std::string name, unit;
    std::size_t channel = 0; ///< of the record
};

/// The texts of one `<Log>`; used again for each, so that a row allocates nothing.
struct LogRow {
    std::string date, time, ms;
    std::vector<std::string> readings; ///< one a channel of the file's list
    std::size_t line = 0;

    void Clear() {
        date.clear();
        time.clear();
        ms.clear();
        for (std::string& reading : readings)
            reading.clear();
    }
};

/// Dates have `/`, `-` or `_` between their numbers; `-` only where the year is first.
void UseSlashes(std::string& date) {
    const bool yearIsLast = date.size() > 4 && date[date.size() - 5] == '-';
    for (char& c : date)
        if (c == '_' || (c == '-' && yearIsLast))
            c = '/';
}

class XleRows {
public:
    XleRows(std::string_view text, RecordBuilder& builder)
        : builder_(builder)
        , record_(builder.Reading().record)
        , bytesBefore_(BodyStart(text))
        , linesBefore_(LinesIn(text.substr(0, bytesBefore_)))
        , xml_(QByteArray::fromRawData(text.data() + bytesBefore_,
                                       static_cast<qsizetype>(text.size() - bytesBefore_))) {}

    void Read() {
        while (goesOn_ && !xml_.atEnd()) {
            const auto token = xml_.readNext();
            if (token == QXmlStreamReader::StartElement)
                Open();
            else if (token == QXmlStreamReader::EndElement)
                Close();
            else if (token == QXmlStreamReader::Characters && text_ != nullptr)
                Append(xml_.text());
        }
        for (const XleChannel& channel : channels_)
            builder_.NameChannel(channel.channel, channel.name, channel.unit);
        if (goesOn_ && xml_.hasError())
            builder_.Reading().notes.push_back("The file is cut or damaged at row " +
                                               std::to_string(Line()) +
                                               "; the rows before it are kept.");
    }

private:
    /// Behind the declaration: what it says of the encoding no longer holds, for the text is
    /// decoded already.
    static std::size_t BodyStart(std::string_view text) {
        if (!text.starts_with("<?xml"))
            return 0;
        const std::size_t end = text.find("?>");
        return end == std::string_view::npos ? 0 : end + 2;
    }

    static std::size_t LinesIn(std::string_view text) {
        LineReader lines(text);
        std::string_view line;
        while (lines.Next(line)) {
        }
        return lines.Line() - (lines.Line() > 0 && lines.EndsWithoutLineEnd() ? 1 : 0);
    }

    std::size_t Line() const { return static_cast<std::size_t>(xml_.lineNumber()) + linesBefore_; }

    void Append(QStringView characters) {
        for (const QChar c : characters) {
            if (c.unicode() >= 0x80) {
                *text_ += characters.toString().toStdString();
                return;
            }
        }
        for (const QChar c : characters)
            text_->push_back(static_cast<char>(c.unicode()));
    }

    void Open() {
        const QStringView name = xml_.name();
        text_ = nullptr;
        if (inLog_) {
            OpenInLog(name);
        } else if (name == u"Log") {
            inLog_ = true;
            row_.Clear();
            row_.line = Line();
        } else if (header_ != NoHeader) {
            OpenInHeader(name);
        } else if (const int number = ChannelNumber(name, QLatin1String("_data_header"))) {
            header_ = PlaceOf(number);
        } else if (name == u"Location") {
            KeepFirst(record_.location);
        } else if (name == u"Serial_number") {
            KeepFirst(record_.serial);
        }
    }

    void OpenInHeader(QStringView name) {
        if (name == u"Identification")
            text_ = Emptied(channels_[header_].name);
        else if (name == u"Unit")
            text_ = Emptied(channels_[header_].unit);
    }

    void OpenInLog(QStringView name) {
        if (name == u"Date") {
            text_ = Emptied(row_.date);
        } else if (name == u"Time") {
            text_ = Emptied(row_.time);
        } else if (name == u"ms") {
            text_ = Emptied(row_.ms);
        } else if (const int number = ChannelNumber(name, QLatin1String())) {
            text_ = Emptied(row_.readings[PlaceOf(number)]);
        }
    }

    static std::string* Emptied(std::string& text) {
        text.clear();
        return &text;
    }

    /// The text that follows is the value of `field`, unless it has one.
    void KeepFirst(std::optional<std::string>& field) {
        kept_.clear();
        text_ = &kept_;
        keptFor_ = field ? nullptr : &field;
    }

    void Close() {
        const QStringView name = xml_.name();
        if (text_ == &kept_ && keptFor_ != nullptr && !TrimSpace(kept_).empty())
            *keptFor_ = TrimSpace(kept_);
        text_ = nullptr;
        if (inLog_ && name == u"Log") {
            inLog_ = false;
            TakeRow();
            goesOn_ =
                builder_.GoesOn(bytesBefore_ + static_cast<std::size_t>(xml_.characterOffset()));
        } else if (header_ != NoHeader && !inLog_ &&
                   ChannelNumber(name, QLatin1String("_data_header")) != 0) {
            header_ = NoHeader;
        }
    }

    void TakeRow() {
        UseSlashes(row_.date);
        if (!hasParser_)
            ChooseParser();
        std::int64_t time = 0;
        if (!hasParser_ || !parser_.Parse(row_.date, row_.time, time) || !AddFraction(time)) {
            builder_.LeaveOut(row_.line,
                              row_.date + " " + row_.time + (row_.ms.empty() ? "" : " ") + row_.ms);
            return;
        }
        builder_.AddRow(row_.line, time);
        for (std::size_t i = 0; i < channels_.size(); ++i) {
            double number = 0;
            if (ParseReading(row_.readings[i], true, number))
                builder_.AddNumber(channels_[i].channel, number);
            else
                builder_.AddNotNumber(channels_[i].channel, TrimSpace(row_.readings[i]));
        }
    }

    void ChooseParser() {
        const std::optional<TimeShape> shape = ShapeOfTime(row_.date, true);
        hasParser_ = shape && shape->isDateOnly;
        if (hasParser_)
            parser_ = builder_.ParserFor(shape->form, true, "");
    }

    bool AddFraction(std::int64_t& time) const {
        if (TrimSpace(row_.ms).empty())
            return true;
        double ms = 0;
        if (!ParseReading(row_.ms, true, ms) || !(ms >= 0 && ms < 1000))
            return false;
        time += static_cast<std::int64_t>(ms * 1000 + 0.5);
        return true;
    }

    /// Where channel `number` stands in `channels_`.
    std::size_t PlaceOf(int number) {
        for (std::size_t i = 0; i < channels_.size(); ++i)
            if (channels_[i].number == number)
                return i;
        channels_.push_back({number, "", "", builder_.AddChannel("", "")});
        row_.readings.emplace_back();
        return channels_.size() - 1;
    }

    static constexpr std::size_t NoHeader = static_cast<std::size_t>(-1);

    RecordBuilder& builder_;
    LoggerRecord& record_;
    std::size_t bytesBefore_, linesBefore_;
    QXmlStreamReader xml_;
    std::vector<XleChannel> channels_;
    LogRow row_;
    TimeParser parser_;
    std::string kept_;
    std::optional<std::string>* keptFor_ = nullptr;
    std::string* text_ = nullptr;   ///< takes the text of the element that is open
    std::size_t header_ = NoHeader; ///< the channel whose header is open
    bool inLog_ = false, hasParser_ = false, goesOn_ = true;
};

} // namespace

void ReadXle(std::string_view text, RecordBuilder& builder) {
    XleRows(text, builder).Read();
}

} // namespace quarnel
