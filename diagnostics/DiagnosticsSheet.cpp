#include "diagnostics/DiagnosticsSheet.h"

#include "diagnostics/ResidualDrawing.h"
#include "project/Texts.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quarnel {

namespace {

constexpr double PaperEdge = 1080; ///< least distance of the text from the paper's edge
constexpr double MostInset = 0.15; ///< of a small paper's width or height
constexpr double TitlePoints = 16;
constexpr double SentencePoints = 10.5;
constexpr double HeadingPoints = 10.5;
constexpr double TextPoints = 9;
constexpr double FootPoints = 8;
constexpr double Leading = 1.18; ///< line distance in heights of the text
constexpr double PageGap = 300;
constexpr double SmallGap = 70;
constexpr double CellGap = 240;
constexpr double RuleWidth = 10;
constexpr double ThinRule = 6;
constexpr double FootHeight = 420;
constexpr double PictureHeight = 3300;

double Inset(double margin, double extent) {
    return std::min(std::max(0.0, PaperEdge - margin), extent * MostInset);
}

/// Puts a drawing into another one, its corner at x, y.
void Place(const Drawing& part, double x, double y, Drawing& whole) {
    for (DrawingArea area : part.areas) {
        area.x += x;
        area.y += y;
        whole.areas.push_back(area);
    }
    for (DrawingLine line : part.lines) {
        line.x1 += x;
        line.x2 += x;
        line.y1 += y;
        line.y2 += y;
        whole.lines.push_back(line);
    }
    for (DrawingCircle circle : part.circles) {
        circle.x += x;
        circle.y += y;
        whole.circles.push_back(circle);
    }
    for (DrawingLabel label : part.labels) {
        label.x += x;
        label.y += y;
        whole.labels.push_back(std::move(label));
    }
}

} // namespace

DiagnosticsSheet::DiagnosticsSheet(Diagnostics& diagnostics, const ProjectState& state,
                                   double percent, const Paper& paper, const TextMeasure& measure)
    : paper_(paper)
    , measure_(measure)
    , well_(TrimBlanks(state.WellTestIDTxt[WellLabel]))
    , left_(Inset(paper.marginLeft, paper.printableWidth))
    , right_(paper.printableWidth - Inset(paper.marginRight, paper.printableWidth))
    , top_(Inset(paper.marginTop, paper.printableHeight))
    , bottom_(paper.printableHeight - Inset(paper.marginBottom, paper.printableHeight)) {
    const DiagnosticsLines lines(diagnostics.Source(), state);
    AddHead(well_, lines.Summary(diagnostics.Statistics(), diagnostics.SensitivityTo(percent)),
            lines.StateLine());
    for (const DiagnosticsPage page : {DiagnosticsPage::Statistics, DiagnosticsPage::Windows,
                                       DiagnosticsPage::Checks, DiagnosticsPage::Sensitivity})
        AddPage(page, TextsOfPage(page, diagnostics, lines, percent));
    AddPage(DiagnosticsPage::Residuals, {});
    AddPicture(DrawSegments(diagnostics, right_ - left_, PictureHeight));
    AddPicture(DrawResiduals(diagnostics, right_ - left_, PictureHeight));
    BreakIntoPages();
}

double DiagnosticsSheet::LineHeight(double points) const {
    return measure_.Height(points) * Leading;
}

DrawingLabel DiagnosticsSheet::Text(double x, double y, std::string text, double points,
                                    double maxWidth) const {
    DrawingLabel label;
    label.x = x;
    label.y = y;
    label.text = std::move(text);
    label.points = points;
    label.maxWidth = maxWidth;
    return label;
}

void DiagnosticsSheet::AddHead(const std::string& well, const std::string& sentence,
                               const std::string& stateLine) {
    AddSentence("Diagnostics", TitlePoints, true, SmallGap);
    if (!well.empty())
        AddSentence("Monitoring Well: " + well, TextPoints, false, SmallGap);
    AddSentence(sentence, SentencePoints, true, SmallGap);
    AddSentence(stateLine, TextPoints, false, PageGap);
}

void DiagnosticsSheet::AddSentence(const std::string& text, double points, bool bold,
                                   double gapAfter) {
    // Bold letters are up to a tenth wider than the upright ones that are measured.
    const double width = (right_ - left_) * (bold ? 0.9 : 1);
    for (std::string& line : WrapText(text, points, width, measure_)) {
        Strip strip;
        strip.height = LineHeight(points);
        strip.content.labels.push_back(Text(left_, 0, std::move(line), points, right_ - left_));
        strip.content.labels.back().bold = bold;
        strips_.push_back(std::move(strip));
    }
    strips_.back().gap = gapAfter;
}

void DiagnosticsSheet::AddPage(DiagnosticsPage page, const PageTexts& texts) {
    AddSentence(std::string(DiagnosticsPageTitles[static_cast<std::size_t>(page)]), HeadingPoints,
                true, SmallGap);
    const std::size_t first = strips_.size() - 1;
    Strip& heading = strips_.back();
    heading.content.lines.push_back({left_, LineHeight(HeadingPoints), right_,
                                     LineHeight(HeadingPoints), DrawingColour::Ink, RuleWidth});
    for (const std::string& sentence : texts.above)
        AddSentence(sentence, TextPoints, false, SmallGap);
    for (std::size_t i = first; i < strips_.size(); ++i)
        strips_[i].keepWithNext = true;
    if (!texts.rows.empty())
        AddTable(texts);
    for (const std::string& sentence : texts.below)
        AddSentence(sentence, TextPoints, false, SmallGap);
    if (!texts.below.empty())
        strips_.back().gap = PageGap;
}

std::vector<double> DiagnosticsSheet::ColumnWidths(const PageTexts& texts) const {
    std::vector<double> widths(texts.rows.front().size());
    const auto widen = [this, &widths](const TextRow& row, double factor) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], measure_.Width(row[i], TextPoints) * factor);
    };
    widen(texts.headings, 1.1);
    for (const TextRow& row : texts.rows)
        widen(row, 1);
    const double gaps = CellGap * static_cast<double>(widths.size() - 1);
    const double total = std::accumulate(widths.begin(), widths.end(), gaps);
    const auto widest = std::max_element(widths.begin(), widths.end());
    if (total > right_ - left_)
        *widest = std::max(*widest - (total - (right_ - left_)), (right_ - left_) / 4);
    return widths;
}

DiagnosticsSheet::Strip DiagnosticsSheet::RowStrip(const TextRow& row,
                                                   const std::vector<double>& widths,
                                                   bool hasNumbers, bool bold) const {
    Strip strip;
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
            strip.content.labels.push_back(std::move(label));
        }
        strip.height =
            std::max(strip.height, static_cast<double>(lines.size()) * LineHeight(TextPoints));
        x += widths[i] + CellGap;
    }
    return strip;
}

void DiagnosticsSheet::AddTable(const PageTexts& texts) {
    const std::vector<double> widths = ColumnWidths(texts);
    if (!texts.headings.empty()) {
        Strip strip = RowStrip(texts.headings, widths, texts.hasNumbers, true);
        const double end = std::min(
            right_, left_ + std::accumulate(widths.begin(), widths.end(),
                                            CellGap * static_cast<double>(widths.size() - 1)));
        strip.content.lines.push_back(
            {left_, strip.height, end, strip.height, DrawingColour::Ink, ThinRule});
        strip.gap = SmallGap / 2;
        strip.keepWithNext = true;
        strips_.push_back(std::move(strip));
    }
    const std::size_t first = strips_.size();
    double height = 0;
    for (const TextRow& row : texts.rows) {
        strips_.push_back(RowStrip(row, widths, texts.hasNumbers, false));
        height += strips_.back().height;
    }
    // A table stands whole below its headings, unless the sheet is very small.
    const bool isKept = height < (bottom_ - top_) / 2;
    for (std::size_t i = first; i + 1 < strips_.size(); ++i)
        strips_[i].keepWithNext = isKept;
    strips_.back().gap = SmallGap;
}

void DiagnosticsSheet::AddPicture(const Drawing& drawing) {
    Strip strip;
    strip.height = PictureHeight;
    strip.gap = SmallGap;
    Place(drawing, left_, 0, strip.content);
    strips_.push_back(std::move(strip));
}

void DiagnosticsSheet::BreakIntoPages() {
    const double end = bottom_ - FootHeight;
    double y = top_;
    pages_.push_back(0);
    for (std::size_t i = 0; i < strips_.size(); ++i) {
        double needed = strips_[i].height;
        for (std::size_t j = i; strips_[j].keepWithNext && j + 1 < strips_.size(); ++j)
            needed += strips_[j].gap + strips_[j + 1].height;
        if (y + needed > end && pages_.back() < i) {
            pages_.push_back(i);
            y = top_;
        }
        y += strips_[i].height + strips_[i].gap;
    }
}

Drawing DiagnosticsSheet::Page(std::size_t page) const {
    Drawing drawing;
    drawing.width = paper_.printableWidth;
    drawing.height = paper_.printableHeight;
    double y = top_;
    const std::size_t end = page + 1 < pages_.size() ? pages_[page + 1] : strips_.size();
    for (std::size_t i = pages_[page]; i < end; ++i) {
        Place(strips_[i].content, 0, y, drawing);
        y += strips_[i].height + strips_[i].gap;
    }
    const double foot = bottom_ - measure_.Height(FootPoints);
    drawing.lines.push_back(
        {left_, foot - SmallGap, right_, foot - SmallGap, DrawingColour::Ink, ThinRule});
    if (!well_.empty())
        drawing.labels.push_back(
            Text(left_, foot, "Monitoring Well: " + well_, FootPoints, (right_ - left_) / 2));
    DrawingLabel number =
        Text(right_, foot, "Page " + std::to_string(page + 1) + " of " + std::to_string(Count()),
             FootPoints, (right_ - left_) / 2 - CellGap);
    number.across = Across::Right;
    drawing.labels.push_back(std::move(number));
    return drawing;
}

} // namespace quarnel
