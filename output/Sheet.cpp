#include "output/Sheet.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quarnel {

namespace {

constexpr double PaperEdge = 1080; ///< least distance of the text from the paper's edge
constexpr double MostInset = 0.15; ///< of a small paper's width or height
constexpr double TitlePoints = 16;
constexpr double KeyPoints = 10.5;
constexpr double HeadingPoints = 10.5;
constexpr double TextPoints = 9;
constexpr double FootPoints = 8;
constexpr double Leading = 1.18; ///< line distance in heights of the text
constexpr double LargeGap = 300;
constexpr double SmallGap = 70;
constexpr double CellGap = 240;
constexpr double RuleWidth = 10;
constexpr double ThinRule = 6;
constexpr double FootHeight = 420;
/// Bold letters are up to a tenth wider than the upright ones that are measured.
constexpr double BoldPart = 0.9;
/// Where the second label of a line to fill in begins, as a part of the line.
constexpr double SecondLabelPart = 0.6;

double Inset(double margin, double extent) {
    return std::min(std::max(0.0, PaperEdge - margin), extent * MostInset);
}

DrawingLine Rule(double x1, double x2, double y, double width) {
    return {x1, y, x2, y, DrawingColour::Ink, width};
}

} // namespace

Sheet::Sheet(const Paper& paper, const TextMeasure& measure, std::string name)
    : paper_(paper)
    , measure_(measure)
    , name_(std::move(name))
    , left_(Inset(paper.marginLeft, paper.printableWidth))
    , right_(paper.printableWidth - Inset(paper.marginRight, paper.printableWidth))
    , top_(Inset(paper.marginTop, paper.printableHeight))
    , bottom_(paper.printableHeight - Inset(paper.marginBottom, paper.printableHeight)) {}

double Sheet::LineHeight(double points) const {
    return measure_.Height(points) * Leading;
}

double Sheet::TextHeight() const {
    return bottom_ - FootHeight - top_;
}

DrawingLabel Sheet::Text(double x, double y, std::string text, double points,
                         double maxWidth) const {
    DrawingLabel label;
    label.x = x;
    label.y = y;
    label.text = std::move(text);
    label.points = points;
    label.maxWidth = maxWidth;
    return label;
}

void Sheet::Add(Drawing content, double height, double gap, bool keepWithNext) {
    Strip strip;
    strip.height = height;
    strip.gap = gap;
    strip.keepWithNext = keepWithNext;
    strip.content = std::make_shared<const Drawing>(std::move(content));
    strips_.push_back(std::move(strip));
}

void Sheet::AddText(const std::string& text, double points, bool bold, double gap,
                    bool keepWithNext) {
    const double width = TextWidth() * (bold ? BoldPart : 1);
    for (std::string& line : WrapText(text, points, width, measure_)) {
        Drawing content;
        content.labels.push_back(Text(left_, 0, std::move(line), points, TextWidth()));
        content.labels.back().bold = bold;
        Add(std::move(content), LineHeight(points), 0, keepWithNext);
    }
    strips_.back().gap = gap;
}

void Sheet::AddTitle(const std::string& text) {
    AddText(text, TitlePoints, true, SmallGap, true);
}

void Sheet::AddKeySentence(const std::string& text) {
    AddText(text, KeyPoints, true, SmallGap, false);
}

void Sheet::AddSentence(const std::string& text, Keep keep) {
    AddText(text, TextPoints, false, SmallGap, keep == Keep::WithNext);
}

void Sheet::AddHeading(const std::string& text) {
    Drawing content;
    content.labels.push_back(Text(left_, 0, text, HeadingPoints, TextWidth()));
    content.labels.back().bold = true;
    content.lines.push_back(Rule(left_, right_, LineHeight(HeadingPoints), RuleWidth));
    Add(std::move(content), LineHeight(HeadingPoints), SmallGap, true);
}

void Sheet::AddLineToFillIn(const std::string& label, const std::string& secondLabel) {
    Drawing content;
    const double base = measure_.Height(TextPoints);
    const auto add = [&](double x, double end, const std::string& text) {
        const double width = measure_.Width(text, TextPoints);
        content.labels.push_back(Text(x, 0, text, TextPoints, end - x));
        content.lines.push_back({x + width, base, end, base, DrawingColour::Grey, ThinRule, true});
    };
    const double middle = left_ + TextWidth() * SecondLabelPart;
    add(left_, secondLabel.empty() ? right_ : middle - CellGap, label);
    if (!secondLabel.empty())
        add(middle, right_, secondLabel);
    Add(std::move(content), LineHeight(TextPoints), SmallGap, false);
}

void Sheet::AddGap() {
    if (!strips_.empty())
        strips_.back().gap = LargeGap;
}

// ---- Tables -------------------------------------------------------------------------------------

std::vector<double> Sheet::ColumnWidths(const SheetRow& headings,
                                        const std::vector<SheetRow>& rows) const {
    std::vector<double> widths(rows.empty() ? headings.size() : rows.front().size());
    const auto widen = [this, &widths](const SheetRow& row, double factor) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], measure_.Width(row[i], TextPoints) * factor);
    };
    widen(headings, 1 / BoldPart);
    for (const SheetRow& row : rows)
        widen(row, 1);
    // What does not fit is taken from the widest column, one after the other.
    const double room = TextWidth() - CellGap * static_cast<double>(widths.size() - 1);
    const double least = room / static_cast<double>(widths.size());
    for (std::size_t tries = 0; tries < widths.size(); ++tries) {
        const double over = std::accumulate(widths.begin(), widths.end(), 0.0) - room;
        const auto widest = std::max_element(widths.begin(), widths.end());
        if (over > 0)
            *widest = std::max(*widest - over, std::min(*widest, std::max(least, room / 4)));
    }
    return widths;
}

Drawing Sheet::RowOf(const SheetRow& row, const std::vector<double>& widths, bool hasNumbers,
                     bool bold, double& height) const {
    Drawing content;
    double x = left_;
    for (std::size_t i = 0; i < row.size(); ++i) {
        // A column is as wide as its widest text on one line, where letters may stand closer than
        // one by one.
        const bool fits = bold || measure_.Width(row[i], TextPoints) <= widths[i];
        const std::vector<std::string> lines =
            fits ? std::vector<std::string>{row[i]}
                 : WrapText(row[i], TextPoints, widths[i], measure_);
        const bool isNumber = hasNumbers && i > 0;
        for (std::size_t line = 0; line < lines.size(); ++line) {
            DrawingLabel label = Text(isNumber ? x + widths[i] : x,
                                      static_cast<double>(line) * LineHeight(TextPoints),
                                      lines[line], TextPoints, widths[i]);
            label.across = isNumber ? Across::Right : Across::Left;
            label.bold = bold;
            content.labels.push_back(std::move(label));
        }
        height = std::max(height, static_cast<double>(lines.size()) * LineHeight(TextPoints));
        x += widths[i] + CellGap;
    }
    return content;
}

void Sheet::AddTable(const SheetRow& headings, const std::vector<SheetRow>& rows, bool hasNumbers) {
    if (headings.empty() && rows.empty())
        return;
    const std::vector<double> widths = ColumnWidths(headings, rows);
    const auto add = [&](const SheetRow& row, bool bold) {
        double height = 0;
        Drawing content = RowOf(row, widths, hasNumbers, bold, height);
        Add(std::move(content), height, 0, bold);
    };
    if (!headings.empty()) {
        double height = 0;
        Drawing content = RowOf(headings, widths, hasNumbers, true, height);
        const double end = std::min(
            right_, left_ + std::accumulate(widths.begin(), widths.end(),
                                            CellGap * static_cast<double>(widths.size() - 1)));
        content.lines.push_back(Rule(left_, end, height, ThinRule));
        Add(std::move(content), height, SmallGap / 2, true);
    }
    const std::size_t first = strips_.size();
    double height = 0;
    for (const SheetRow& row : rows) {
        add(row, false);
        height += strips_.back().height;
    }
    // A table stands whole below its headings, unless the sheet is very small.
    const bool isKept = height < (bottom_ - top_) / 2;
    for (std::size_t i = first; i + 1 < strips_.size(); ++i)
        strips_[i].keepWithNext = isKept;
    strips_.back().gap = SmallGap;
}

Drawing Sheet::LongRow(const SheetRow& row, bool bold) const {
    Drawing content;
    const double width = TextWidth() / static_cast<double>(row.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
        content.labels.push_back(Text(left_ + width * static_cast<double>(i + 1) - CellGap, 0,
                                      row[i], TextPoints, width - CellGap));
        content.labels.back().across = Across::Right;
        content.labels.back().bold = bold;
    }
    if (bold)
        content.lines.push_back(Rule(left_, right_, LineHeight(TextPoints), ThinRule));
    return content;
}

double Sheet::LongHeadingHeight() const {
    return LineHeight(TextPoints) + SmallGap / 2;
}

void Sheet::AddLongTable(const SheetRow& headings, std::size_t rowCount,
                         std::function<SheetRow(std::size_t row)> row) {
    Add(LongRow(headings, true), LineHeight(TextPoints), SmallGap / 2, rowCount > 0);
    Strip strip;
    strip.height = LineHeight(TextPoints);
    strip.longTable = longTables_.size();
    strips_.reserve(strips_.size() + rowCount);
    for (std::size_t i = 0; i < rowCount; ++i) {
        strip.row = i;
        strips_.push_back(strip);
    }
    strips_.back().gap = SmallGap;
    longTables_.push_back({headings, std::move(row)});
}

// ---- Pages --------------------------------------------------------------------------------------

void Sheet::AddPicture(const Drawing& drawing) {
    Drawing content;
    Place(drawing, left_, 0, content);
    Add(std::move(content), drawing.height, SmallGap, false);
}

bool Sheet::RepeatsHeadings(std::size_t firstStrip) const {
    return firstStrip < strips_.size() && strips_[firstStrip].longTable != NoTable;
}

void Sheet::Finish() {
    const double end = bottom_ - FootHeight;
    double y = top_;
    pages_ = {0};
    for (std::size_t i = 0; i < strips_.size(); ++i) {
        double needed = strips_[i].height;
        for (std::size_t j = i; strips_[j].keepWithNext && j + 1 < strips_.size(); ++j)
            needed += strips_[j].gap + strips_[j + 1].height;
        if (y + needed > end && pages_.back() < i) {
            pages_.push_back(i);
            y = top_ + (RepeatsHeadings(i) ? LongHeadingHeight() : 0);
        }
        y += strips_[i].height + strips_[i].gap;
    }
}

Drawing Sheet::ContentOf(const Strip& strip) const {
    return strip.content != nullptr ? *strip.content
                                    : LongRow(longTables_[strip.longTable].row(strip.row), false);
}

Drawing Sheet::Page(std::size_t page) const {
    Drawing drawing;
    drawing.width = paper_.printableWidth;
    drawing.height = paper_.printableHeight;
    double y = top_;
    const std::size_t begin = pages_[page];
    const std::size_t end = page + 1 < pages_.size() ? pages_[page + 1] : strips_.size();
    if (RepeatsHeadings(begin)) {
        Place(LongRow(longTables_[strips_[begin].longTable].headings, true), 0, y, drawing);
        y += LongHeadingHeight();
    }
    for (std::size_t i = begin; i < end; ++i) {
        Place(ContentOf(strips_[i]), 0, y, drawing);
        y += strips_[i].height + strips_[i].gap;
    }
    DrawFoot(drawing, page);
    return drawing;
}

void Sheet::DrawFoot(Drawing& drawing, std::size_t page) const {
    const double foot = bottom_ - measure_.Height(FootPoints);
    drawing.lines.push_back(Rule(left_, right_, foot - SmallGap, ThinRule));
    if (!name_.empty())
        drawing.labels.push_back(Text(left_, foot, name_, FootPoints, TextWidth() / 2));
    DrawingLabel number =
        Text(right_, foot, "Page " + std::to_string(page + 1) + " of " + std::to_string(Count()),
             FootPoints, TextWidth() / 2 - CellGap);
    number.across = Across::Right;
    drawing.labels.push_back(std::move(number));
}

} // namespace quarnel
