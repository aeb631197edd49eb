#include "output/PrintedPlot.h"

#include "kcompute/KText.h"
#include "output/PlotDrawing.h"
#include "output/PlotLegend.h"
#include "project/ProjectState.h"
#include "project/Texts.h"
#include "recovery/RecoveryData.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnel {

namespace {

constexpr double PlotLeft = 2160;
constexpr double PlotWidth = 8640;
constexpr double PlotHeight = 8640;
constexpr double BottomMargin = 3960;
constexpr double PlotRight = PlotLeft + PlotWidth;
constexpr double CentreLine = (PlotRight + PlotLeft) / 2;
constexpr double PageCircleRadius = 65;
/// Room above the plot for the header and the titles, with which the described page is whole.
constexpr double HeaderRoom = 1440;

constexpr double TextPoints = 9;
constexpr double TitlePoints = 11;
constexpr double SmallestPoints = 2;
constexpr std::size_t MostLines = 3;
constexpr double RowGap = 20;         ///< between the text of a header row and the next row
constexpr double SecondColumn = 3000; ///< from a header row's first column
constexpr double ColumnGap = 150;
constexpr double RuleWidth = 8;
constexpr double HeaderTop = 360;   ///< where the page is high enough
constexpr double TitleGap = 150;    ///< least distance of the titles from header and plot
constexpr double KLineDown = 900;   ///< from the time axis, below its title
constexpr double LegendDown = 1400; ///< from the time axis, below K

/// Smaller steps in which a text is set until it fits.
constexpr double Smaller = 0.9;
/// Least distance of two labels of the time axis, as a part of the distance of its ticks.
constexpr double LabelDistance = 0.05;

struct FittedText {
    std::vector<std::string> lines;
    double points = TextPoints;
    double lineHeight = 0;
    double Height() const { return static_cast<double>(lines.size()) * lineHeight; }
};

/// Sets a text in at most three lines, smaller where the full size does not do. What three lines of
/// the smallest size cannot hold is left out, so that no name pushes the plot off the page.
FittedText FitText(std::string_view text, double points, double maxWidth,
                   const TextMeasure& measure) {
    while (points > SmallestPoints &&
           CountLines(text, points, maxWidth, measure, MostLines) > MostLines)
        points *= Smaller;
    return {WrapText(text, points, maxWidth, measure, MostLines), points, measure.Height(points)};
}

std::string Field(std::string_view label, const std::string& text) {
    return std::string(label) + std::string(TrimBlanks(text));
}

struct HeaderRow {
    FittedText left;
    FittedText right;
    double Height() const { return std::max(left.Height(), right.Height()) + RowGap; }
};

std::string ProfessionalText(const ProjectState& state) {
    std::string text = Field("", state.SiteIDText[ProfessionalName]);
    const std::string number = Field("", state.SiteIDText[CertificationNo]);
    return number.empty() ? text : text + ", " + number;
}

/// What stands above the plot, set in a part of its full size.
class HeaderMaker {
public:
    HeaderMaker(const ProjectState& state, const TextMeasure& measure, double part)
        : state_(state)
        , measure_(measure)
        , part_(part) {}

    std::vector<HeaderRow> Rows() const {
        const auto& site = state_.SiteIDText;
        const auto& well = state_.WellTestIDTxt;
        return {
            TwoFields(Field("LUST No.: ", site[LustNo]), Field("Site Name: ", site[SiteName])),
            TwoFields(Field("Well: ", well[WellLabel]), Field("Slug Test Date: ", well[TestDate])),
            TwoFields(Field("", site[ConsultantName]), ProfessionalText(state_)),
            {Fit(Field("CGWP: ", site[ProfessionalName]), TextPoints, PlotWidth),
             Fit("", TextPoints, PlotWidth)}};
    }

    std::vector<FittedText> Titles() const {
        std::vector<FittedText> titles;
        for (const std::string& text : state_.PlotText)
            if (const std::string_view title = TrimBlanks(text); !title.empty())
                titles.push_back(Fit(title, TitlePoints, PlotWidth));
        return titles;
    }

private:
    FittedText Fit(std::string_view text, double points, double maxWidth) const {
        return FitText(text, points * part_, maxWidth, measure_);
    }
    HeaderRow TwoFields(std::string_view left, std::string_view right) const {
        return {Fit(left, TextPoints, SecondColumn - ColumnGap),
                Fit(right, TextPoints, PlotWidth - SecondColumn)};
    }

    const ProjectState& state_;
    const TextMeasure& measure_;
    double part_;
};

bool HasPlot(const RecoveryData& recovery) {
    const PlotBounds& bounds = recovery.bounds;
    return !recovery.RecoveryPoints->empty() && bounds.PlotMaxTime > 0 && bounds.PlotYAxisMin > 0 &&
           bounds.PlotYAxisMax > bounds.PlotYAxisMin;
}

void Scale(Drawing& drawing, double factor) {
    for (DrawingLine& line : drawing.lines)
        for (double* value : {&line.x1, &line.y1, &line.x2, &line.y2, &line.width})
            *value *= factor;
    for (DrawingCircle& circle : drawing.circles)
        for (double* value : {&circle.x, &circle.y, &circle.radius})
            *value *= factor;
    for (DrawingLabel& label : drawing.labels)
        for (double* value : {&label.x, &label.y, &label.points, &label.maxWidth, &label.maxHeight})
            *value *= factor;
}

/// Makes the page at full size; a printable area too small for the plot gets it scaled down.
class PageMaker {
public:
    PageMaker(const Analysis& analysis, const Paper& paper, const TextMeasure& measure,
              bool showLegend)
        : analysis_(analysis)
        , measure_(measure)
        , showLegend_(showLegend)
        , plot_(analysis.computation ? PlotContents(*analysis.computation)
                                     : PlotContents(analysis.working))
        , paper_(paper)
        , factor_(std::min({1.0, paper.printableWidth / PlotRight,
                            paper.printableHeight / (HeaderRoom + PlotHeight + BottomMargin)}))
        , axisY_(paper.printableHeight / factor_ - BottomMargin) {}

    Drawing Make() {
        if (HasPlot(plot_.recovery)) {
            DrawThePlot(paper_.printableWidth / factor_, paper_.printableHeight / factor_);
            KeepTimeLabelsOnPaper((paper_.printableWidth + paper_.reachRight) / factor_);
        }
        FitHeader();
        const double headerBottom = DrawHeader();
        DrawTitles(headerBottom);
        DrawKLine();
        if (factor_ < 1)
            Scale(drawing_, factor_);
        drawing_.width = paper_.printableWidth;
        drawing_.height = paper_.printableHeight;
        return std::move(drawing_);
    }

private:
    double PlotTop() const { return axisY_ - PlotHeight; }
    /// What header and titles leave of the room above the plot.
    double SpareRoom() const { return PlotTop() - headerHeight_ - titlesHeight_ - 2 * TitleGap; }

    void FitHeader();
    void KeepTimeLabelsOnPaper(double limit);
    void DrawThePlot(double width, double height);
    double DrawHeader();
    void DrawTitles(double headerBottom);
    void DrawKLine();
    double DrawText(const FittedText& text, double x, double y, Across across, double maxWidth);

    const Analysis& analysis_;
    const TextMeasure& measure_;
    bool showLegend_;
    PlotContents plot_;
    const Paper& paper_;
    double factor_; ///< scale of the whole page
    double axisY_;
    std::vector<HeaderRow> rows_;
    std::vector<FittedText> titles_;
    double headerHeight_ = 0;
    double titlesHeight_ = 0;
    Drawing drawing_;
};

void PageMaker::DrawThePlot(double width, double height) {
    PlotLayout layout;
    layout.surfaceWidth = width;
    layout.surfaceHeight = height;
    layout.left = PlotLeft;
    layout.top = PlotTop();
    layout.plotWidth = PlotWidth;
    layout.plotHeight = PlotHeight;
    layout.circleRadius = PageCircleRadius;
    layout.points = TextPoints;
    drawing_ = DrawPlot(plot_, layout);
    if (showLegend_)
        Place(DrawLegend(layout, axisY_ + LegendDown), 0, 0, drawing_);
}

/// Sets header and titles smaller until they fit between the page's top and the plot.
void PageMaker::FitHeader() {
    for (double part = 1; part * TextPoints > SmallestPoints; part *= Smaller) {
        const HeaderMaker header(analysis_.state, measure_, part);
        rows_ = header.Rows();
        titles_ = header.Titles();
        headerHeight_ = 0;
        for (const HeaderRow& row : rows_)
            headerHeight_ += row.Height();
        titlesHeight_ = 0;
        for (const FittedText& title : titles_)
            titlesHeight_ += title.Height();
        if (SpareRoom() >= 0)
            return;
    }
}

/// The last label of the time axis is centred on the plot's right edge and so reaches beyond it.
/// Where it would pass `limit`, it moves to the left, and where it would then run into its
/// neighbour, the labels of the axis are set smaller. The plot stays where it is.
void PageMaker::KeepTimeLabelsOnPaper(double limit) {
    double widest = 0;
    DrawingLabel* last = nullptr;
    for (DrawingLabel& label : drawing_.labels)
        if (label.group == TimeLabels) {
            widest = std::max(widest, measure_.Width(label.text, label.points));
            last = &label;
        }
    const double bound = last->maxWidth;
    const double lastWidth = measure_.Width(last->text, last->points);
    const auto width = [&](double most) { return lastWidth * std::min(1.0, most / widest); };
    if (PlotRight + width(bound) / 2 <= limit)
        return;
    constexpr double Step = PlotWidth / TimeIntervals;
    const double narrow = std::min(bound, (Step * (1 - LabelDistance) + limit - PlotRight) / 1.5);
    for (DrawingLabel& label : drawing_.labels)
        if (label.group == TimeLabels)
            label.maxWidth = narrow;
    last->x = std::min(PlotRight, limit - width(narrow) / 2);
}

/// Draws the lines of a text from `y` down and hands back where the next one would stand.
double PageMaker::DrawText(const FittedText& text, double x, double y, Across across,
                           double maxWidth) {
    for (const std::string& line : text.lines) {
        if (!line.empty()) {
            DrawingLabel label;
            label.x = x;
            label.y = y;
            label.text = line;
            label.across = across;
            label.points = text.points;
            label.maxWidth = maxWidth;
            drawing_.labels.push_back(std::move(label));
        }
        y += text.lineHeight;
    }
    return y;
}

double PageMaker::DrawHeader() {
    double y = std::clamp(SpareRoom(), 0.0, HeaderTop);
    for (const HeaderRow& row : rows_) {
        const bool alone = row.right.lines.front().empty();
        DrawText(row.left, PlotLeft, y, Across::Left, alone ? PlotWidth : SecondColumn - ColumnGap);
        DrawText(row.right, PlotLeft + SecondColumn, y, Across::Left, PlotWidth - SecondColumn);
        y += row.Height();
        const double rule = y - RowGap / 2;
        drawing_.lines.push_back({PlotLeft, rule, PlotRight, rule, DrawingColour::Ink, RuleWidth});
    }
    return y;
}

void PageMaker::DrawTitles(double headerBottom) {
    double y = (headerBottom + PlotTop() - titlesHeight_) / 2;
    for (const FittedText& title : titles_)
        y = DrawText(title, CentreLine, y, Across::Centre, PlotWidth);
}

void PageMaker::DrawKLine() {
    const std::string text = KLine(analysis_.state, analysis_.computation.get());
    if (!text.empty())
        DrawText({{text}, TextPoints, measure_.Height(TextPoints)}, CentreLine, axisY_ + KLineDown,
                 Across::Centre, PlotWidth);
}

} // namespace

Drawing DrawPlotPage(const Analysis& analysis, const Paper& paper, const TextMeasure& measure,
                     bool showLegend) {
    return PageMaker(analysis, paper, measure, showLegend).Make();
}

} // namespace quarnel
