#include "output/ReportPages.h"

#include "project/Texts.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quarnel {

namespace {

constexpr double PaperEdge = 1080; ///< least distance of the text from the paper's edge
constexpr double MostInset = 0.15; ///< of a small paper's width or height
constexpr double TitlePoints = 13;
constexpr double HeadingPoints = 8.5;
constexpr double TextPoints = 9.5;
constexpr double KPoints = 20; ///< K is what the report is read for
constexpr double TablePoints = 9;
constexpr double FootPoints = 8;
constexpr double Leading = 1.18; ///< line distance in heights of the text
constexpr double BlockGap = 260;
constexpr double HeadingGap = 50;
constexpr double ColumnGap = 300;
constexpr double RuleWidth = 10;
constexpr double ThinRule = 6;
constexpr double CellGap = 120;
constexpr double FootHeight = 420;
/// A cell with fewer characters than this fits its column without being measured.
constexpr std::size_t SurelyFittingBytes = 12;
/// A reading of more lines than this is cut, since a row must fit a page.
constexpr std::size_t MostCellLines = 12;

constexpr std::size_t TableColumnCount = 5;
constexpr std::size_t CriteriaColumn = 2;

/// The blocks in the order of the report's text.
enum Block { Site, Client, Consultant, SlugTest, Geometry, Coefficients, BestFit };

DrawingLine Rule(double x1, double x2, double y, DrawingColour colour, double width) {
    return {x1, y, x2, y, colour, width};
}

double Inset(double margin, double extent) {
    return std::min(std::max(0.0, PaperEdge - margin), extent * MostInset);
}

} // namespace

ReportPages::ReportPages(const Analysis& analysis, const Paper& paper, const TextMeasure& measure)
    : analysis_(analysis)
    , measure_(measure)
    , paper_(paper)
    , left_(Inset(paper.marginLeft, paper.printableWidth))
    , right_(paper.printableWidth - Inset(paper.marginRight, paper.printableWidth))
    , top_(Inset(paper.marginTop, paper.printableHeight))
    , bottom_(paper.printableHeight - Inset(paper.marginBottom, paper.printableHeight)) {
    const std::vector<ReportBlock> blocks =
        SummaryReportBlocks(analysis.state, analysis.computation.get());
    AddTitle();
    AddBlocksSideBySide({blocks[Site], blocks[Client], blocks[Consultant]});
    AddSlugTest(blocks[SlugTest]);
    AddBlocksSideBySide({blocks[Geometry], blocks[Coefficients], blocks[BestFit]});
    BreakBlocksIntoPages();
    BreakTableIntoPages();
}

double ReportPages::LineHeight(double points) const {
    return measure_.Height(points) * Leading;
}

DrawingLabel ReportPages::Text(double x, double y, std::string text, double points,
                               double maxWidth) const {
    DrawingLabel label;
    label.x = x;
    label.y = y;
    label.text = std::move(text);
    label.points = points;
    label.maxWidth = maxWidth;
    return label;
}

void ReportPages::AddTitle() {
    Strip strip;
    strip.labels.push_back(Text(left_, 0, std::string(ReportTitle), TitlePoints, right_ - left_));
    strip.labels.back().bold = true;
    strip.height = LineHeight(TitlePoints);
    strip.gap = BlockGap;
    strip.keepWithNext = true;
    strips_.push_back(std::move(strip));
}

ReportPages::Column ReportPages::ColumnOf(const ReportBlock& block, double x, double width) const {
    Column column{block.heading, x, width, {}};
    for (const std::string& line : block.lines) {
        if (line.empty())
            continue;
        std::vector<std::string> wrapped = WrapText(line, TextPoints, width, measure_);
        std::move(wrapped.begin(), wrapped.end(), std::back_inserter(column.lines));
    }
    return column;
}

void ReportPages::AddBlocksSideBySide(const std::vector<ReportBlock>& blocks) {
    const auto count = static_cast<double>(blocks.size());
    const double width = (right_ - left_ - ColumnGap * (count - 1)) / count;
    std::vector<Column> columns;
    double x = left_;
    for (const ReportBlock& block : blocks) {
        columns.push_back(ColumnOf(block, x, width));
        x += width + ColumnGap;
    }
    AddHeadings(columns);
    AddLines(columns);
}

/// The block whose first line states K: larger than any other line and bold.
void ReportPages::AddSlugTest(ReportBlock block) {
    const std::string k = block.lines.front();
    block.lines.erase(block.lines.begin());
    const double width = right_ - left_;
    const Column column = ColumnOf(block, left_, width);
    AddHeadings({column});
    if (!k.empty()) {
        Strip strip;
        strip.height = LineHeight(KPoints);
        strip.keepWithNext = !column.lines.empty();
        strip.labels.push_back(Text(left_, 0, k, KPoints, width));
        strip.labels.back().bold = true;
        strips_.push_back(std::move(strip));
    }
    AddLines({column});
}

void ReportPages::AddHeadings(const std::vector<Column>& columns) {
    Strip strip;
    strip.keepWithNext = true;
    strip.height = LineHeight(HeadingPoints) + HeadingGap;
    for (const Column& column : columns) {
        strip.labels.push_back(Text(column.x, 0, column.heading, HeadingPoints, column.width));
        strip.labels.back().bold = true;
        strip.rules.push_back(Rule(column.x, column.x + column.width, LineHeight(HeadingPoints),
                                   DrawingColour::Ink, RuleWidth));
    }
    strips_.push_back(std::move(strip));
}

void ReportPages::AddLines(const std::vector<Column>& columns) {
    std::size_t lines = 0;
    for (const Column& column : columns)
        lines = std::max(lines, column.lines.size());
    for (std::size_t line = 0; line < lines; ++line) {
        Strip strip;
        strip.height = LineHeight(TextPoints);
        for (const Column& column : columns)
            if (line < column.lines.size())
                strip.labels.push_back(
                    Text(column.x, 0, column.lines[line], TextPoints, column.width));
        strips_.push_back(std::move(strip));
    }
    strips_.back().gap = BlockGap;
}

void ReportPages::BreakBlocksIntoPages() {
    const double end = bottom_ - FootHeight;
    double y = top_;
    pages_.emplace_back();
    for (std::size_t i = 0; i < strips_.size(); ++i) {
        double needed = strips_[i].height;
        for (std::size_t j = i; strips_[j].keepWithNext && j + 1 < strips_.size(); ++j)
            needed += strips_[j].gap + strips_[j + 1].height;
        if (y + needed > end && pages_.back().endStrip > pages_.back().firstStrip) {
            pages_.emplace_back();
            pages_.back().firstStrip = i;
            y = top_;
        }
        pages_.back().endStrip = i + 1;
        y += strips_[i].height + strips_[i].gap;
    }
    endOfBlocks_ = y;
}

double ReportPages::CellWidth() const {
    return (right_ - left_) / TableColumnCount - CellGap;
}

double ReportPages::RowHeight(std::size_t point) const {
    const RecoveryPoint& kept = (*analysis_.computation->recovery.RecoveryPoints)[point];
    std::size_t lines = 1;
    for (const CellText* text : {&kept.timeText, &kept.levelText})
        if (text->View().size() > SurelyFittingBytes)
            lines = std::max(lines, CountLines(text->View(), TablePoints, CellWidth(), measure_,
                                               MostCellLines - 1));
    return static_cast<double>(lines) * LineHeight(TablePoints);
}

void ReportPages::BreakTableIntoPages() {
    const double end = bottom_ - FootHeight;
    const double headingHeight = TableHeading().height;
    const std::size_t count = ReportTableSize(analysis_.computation.get());
    double y = endOfBlocks_;
    if (y + headingHeight + LineHeight(TablePoints) > end) {
        pages_.push_back({strips_.size(), strips_.size(), 0, 0, true});
        y = top_;
    }
    pages_.back().hasTable = true;
    y += headingHeight;
    for (std::size_t point = 0; point < count; ++point) {
        const double height = RowHeight(point);
        if (y + height > end && pages_.back().endPoint > pages_.back().firstPoint) {
            pages_.push_back({strips_.size(), strips_.size(), point, point, true});
            y = top_ + headingHeight;
        }
        pages_.back().endPoint = point + 1;
        y += height;
    }
}

/// A number stands with its decimal point below those of its column, as figures are read.
DrawingLabel ReportPages::NumberCell(std::size_t column, double y, std::string text) const {
    const double width = (right_ - left_) / TableColumnCount;
    const double start = left_ + static_cast<double>(column) * width;
    const double pointAt = start + width * 0.5;
    text = std::string(TrimBlanks(text));
    const std::string whole = text.substr(0, text.find_first_of(".,e"));
    const double x = pointAt - measure_.Width(whole, TablePoints);
    const bool fits =
        x >= start && x + measure_.Width(text, TablePoints) <= start + width - CellGap;
    return Text(fits ? x : start, y, std::move(text), TablePoints, width - CellGap);
}

ReportPages::Strip ReportPages::TableHeading() const {
    const ReportRow headings = ReportTableHeadings(analysis_.state, analysis_.computation.get());
    const double width = (right_ - left_) / TableColumnCount;
    Strip strip;
    strip.rules.push_back(Rule(left_, right_, 0, DrawingColour::Ink, RuleWidth));
    for (std::size_t column = 0; column < TableColumnCount; ++column) {
        const double centre = left_ + (static_cast<double>(column) + 0.5) * width;
        strip.labels.push_back(
            Text(centre, HeadingGap, headings[column], TablePoints, width - CellGap));
        strip.labels.back().across = Across::Centre;
        strip.labels.back().bold = true;
    }
    const double ruleAt = HeadingGap + LineHeight(TablePoints);
    strip.rules.push_back(Rule(left_, right_, ruleAt, DrawingColour::Ink, ThinRule));
    strip.height = ruleAt + HeadingGap;
    return strip;
}

ReportPages::Strip ReportPages::TableRow(std::size_t point) const {
    const ReportRow row = ReportTableRow(*analysis_.computation, point);
    const double width = (right_ - left_) / TableColumnCount;
    Strip strip;
    strip.height = RowHeight(point);
    for (std::size_t column = 0; column < TableColumnCount; ++column) {
        if (row[column].empty())
            continue;
        if (column == CriteriaColumn) {
            const double centre = left_ + (static_cast<double>(column) + 0.5) * width;
            strip.labels.push_back(Text(centre, 0, row[column], TablePoints, width - CellGap));
            strip.labels.back().across = Across::Centre;
            continue;
        }
        const std::vector<std::string> lines =
            WrapText(row[column], TablePoints, CellWidth(), measure_, MostCellLines);
        if (lines.size() == 1) {
            strip.labels.push_back(NumberCell(column, 0, row[column]));
            continue;
        }
        for (std::size_t line = 0; line < lines.size(); ++line)
            strip.labels.push_back(Text(left_ + static_cast<double>(column) * width,
                                        static_cast<double>(line) * LineHeight(TablePoints),
                                        lines[line], TablePoints, width - CellGap));
    }
    return strip;
}

void ReportPages::Place(const Strip& strip, double& y, Drawing& drawing) {
    for (DrawingLabel label : strip.labels) {
        label.y += y;
        drawing.labels.push_back(std::move(label));
    }
    for (DrawingLine rule : strip.rules) {
        rule.y1 += y;
        rule.y2 += y;
        drawing.lines.push_back(rule);
    }
    y += strip.height + strip.gap;
}

void ReportPages::DrawFoot(Drawing& drawing, std::size_t page) const {
    const double y = bottom_ - measure_.Height(FootPoints);
    const double middle = (left_ + right_) / 2;
    drawing.lines.push_back(Rule(left_, right_, y - HeadingGap, DrawingColour::Ink, ThinRule));
    const std::string well(TrimBlanks(analysis_.state.WellTestIDTxt[WellLabel]));
    if (!well.empty()) {
        const double width = middle - left_;
        const std::vector<std::string> lines =
            WrapText("Monitoring Well: " + well, FootPoints, width, measure_, 1);
        drawing.labels.push_back(Text(left_, y, lines.front(), FootPoints, width));
    }
    const auto number = static_cast<long long>(page) + 1;
    const auto count = static_cast<long long>(Count());
    DrawingLabel label =
        Text(right_, y, "Page " + std::to_string(number) + " of " + std::to_string(count),
             FootPoints, right_ - middle - CellGap);
    label.across = Across::Right;
    drawing.labels.push_back(std::move(label));
}

Drawing ReportPages::Page(std::size_t page) const {
    const PageContent& content = pages_[page];
    Drawing drawing;
    drawing.width = paper_.printableWidth;
    drawing.height = paper_.printableHeight;
    double y = top_;
    for (std::size_t i = content.firstStrip; i < content.endStrip; ++i)
        Place(strips_[i], y, drawing);
    if (content.hasTable) {
        Place(TableHeading(), y, drawing);
        for (std::size_t point = content.firstPoint; point < content.endPoint; ++point)
            Place(TableRow(point), y, drawing);
        drawing.lines.push_back(Rule(left_, right_, y, DrawingColour::Ink, ThinRule));
    }
    DrawFoot(drawing, page);
    return drawing;
}

} // namespace quarnel
