#include "output/PrintedPlot.h"

#include "kcompute/KText.h"
#include "kcompute/NumberToText.h"
#include "output/PlotDrawing.h"
#include "output/TextWidth.h"
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

constexpr double TextPoints = 9;
constexpr double TitlePoints = 11;
constexpr double SmallestPoints = 2;
constexpr std::size_t MostLines = 3;
constexpr double RowGap = 20;         ///< between the text of a header row and the next row
constexpr double SecondColumn = 3000; ///< from a header row's first column
constexpr double ColumnGap = 150;
constexpr double RuleWidth = 8;
constexpr double HeaderTop = 360; ///< where the page is high enough
constexpr double TitleGap = 150;  ///< least distance of the titles from header and plot
constexpr double KLineDown = 900; ///< from the time axis, below its title

struct FittedText {
    std::vector<std::string> lines;
    double points = TextPoints;
    double Height() const { return static_cast<double>(lines.size()) * ArialHeight(points); }
};

/// Sets a text in at most three lines, smaller where the full size does not do.
FittedText FitText(std::string_view text, double points, double maxWidth) {
    FittedText fitted{WrapArial(text, points, maxWidth), points};
    while (fitted.lines.size() > MostLines && fitted.points > SmallestPoints) {
        fitted.points *= 0.9;
        fitted.lines = WrapArial(text, fitted.points, maxWidth);
    }
    return fitted;
}

std::string Field(std::string_view label, const std::string& text) {
    return std::string(label) + std::string(TrimBlanks(text));
}

struct HeaderRow {
    FittedText left;
    FittedText right;
    double Height() const { return std::max(left.Height(), right.Height()) + RowGap; }
};

HeaderRow TwoFields(std::string_view left, std::string_view right) {
    return {FitText(left, TextPoints, SecondColumn - ColumnGap),
            FitText(right, TextPoints, PlotWidth - SecondColumn)};
}

std::string ProfessionalText(const ProjectState& state) {
    std::string text = Field("", state.SiteIDText[ProfessionalName]);
    const std::string number = Field("", state.SiteIDText[CertificationNo]);
    return number.empty() ? text : text + ", " + number;
}

std::vector<HeaderRow> HeaderRows(const ProjectState& state) {
    const auto& site = state.SiteIDText;
    const auto& well = state.WellTestIDTxt;
    return {TwoFields(Field("LUST No.: ", site[LustNo]), Field("Site Name: ", site[SiteName])),
            TwoFields(Field("Well: ", well[WellLabel]), Field("Slug Test Date: ", well[TestDate])),
            TwoFields(Field("", site[ConsultantName]), ProfessionalText(state)),
            {FitText(Field("CGWP: ", site[ProfessionalName]), TextPoints, PlotWidth),
             FitText("", TextPoints, PlotWidth)}};
}

std::vector<FittedText> Titles(const ProjectState& state) {
    std::vector<FittedText> titles;
    for (const std::string& text : state.PlotText) {
        const std::string_view title = TrimBlanks(text);
        if (!title.empty())
            titles.push_back(FitText(title, TitlePoints, PlotWidth));
    }
    return titles;
}

bool HasPlot(const RecoveryData& recovery) {
    const PlotBounds& bounds = recovery.bounds;
    return !recovery.RecoveryPoints->empty() && bounds.PlotMaxTime > 0 && bounds.PlotYAxisMin > 0 &&
           bounds.PlotYAxisMax > bounds.PlotYAxisMin;
}

/// How far the last label of the time axis reaches beyond the plot.
double LabelOverhang(const RecoveryData& recovery) {
    const std::string label =
        NumberToText(TwoDecimals, static_cast<float>(recovery.bounds.PlotMaxTime));
    return ArialWidth(label, TextPoints) / 2;
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

/// Makes the page at full size; a small printable area gets it scaled down.
class PageMaker {
public:
    explicit PageMaker(const Analysis& analysis)
        : analysis_(analysis)
        , plot_(analysis.computation ? PlotContents(*analysis.computation)
                                     : PlotContents(analysis.working))
        , rows_(HeaderRows(analysis.state))
        , titles_(Titles(analysis.state)) {
        for (const HeaderRow& row : rows_)
            headerHeight_ += row.Height();
        for (const FittedText& title : titles_)
            titlesHeight_ += title.Height();
    }

    Drawing Make(double width, double height) {
        const double factor = std::min({1.0, width / LeastWidth(), height / LeastHeight()});
        axisY_ = height / factor - BottomMargin;
        if (HasPlot(plot_.recovery))
            DrawThePlot(width / factor, height / factor);
        const double headerBottom = DrawHeader();
        DrawTitles(headerBottom);
        DrawKLine();
        if (factor < 1)
            Scale(drawing_, factor);
        drawing_.width = width;
        drawing_.height = height;
        return std::move(drawing_);
    }

private:
    double LeastWidth() const { return PlotRight + LabelOverhang(plot_.recovery); }
    double LeastHeight() const {
        return headerHeight_ + TitleGap + titlesHeight_ + TitleGap + PlotHeight + BottomMargin;
    }
    double PlotTop() const { return axisY_ - PlotHeight; }

    void DrawThePlot(double width, double height);
    double DrawHeader();
    void DrawTitles(double headerBottom);
    void DrawKLine();
    double DrawText(const FittedText& text, double x, double y, Across across, double maxWidth);

    const Analysis& analysis_;
    PlotContents plot_;
    std::vector<HeaderRow> rows_;
    std::vector<FittedText> titles_;
    double headerHeight_ = 0;
    double titlesHeight_ = 0;
    double axisY_ = 0;
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
        y += ArialHeight(text.points);
    }
    return y;
}

double PageMaker::DrawHeader() {
    const double room = PlotTop() - headerHeight_ - titlesHeight_ - 2 * TitleGap;
    double y = std::clamp(room, 0.0, HeaderTop);
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
        DrawText({{text}, TextPoints}, CentreLine, axisY_ + KLineDown, Across::Centre, PlotWidth);
}

} // namespace

Drawing DrawPlotPage(const Analysis& analysis, double printableWidthTwips,
                     double printableHeightTwips) {
    return PageMaker(analysis).Make(printableWidthTwips, printableHeightTwips);
}

} // namespace quarnel
