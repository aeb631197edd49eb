#include "tests/output/DrawingText.h"

#include "kcompute/Analysis.h"
#include "output/PlotDrawing.h"
#include "output/PrintedPlot.h"
#include "tests/output/ArialMeasure.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace quarnel {

namespace {

constexpr std::array<const char*, 6> ColourNames = {"ink", "grid", "red", "blue", "grey", "band"};
constexpr std::array<const char*, 3> AcrossNames = {"left", "centre", "right"};
constexpr std::array<const char*, 3> AlongNames = {"top", "middle", "bottom"};

std::string Numbers(std::initializer_list<double> values) {
    std::string text;
    for (const double value : values) {
        std::array<char, 64> buffer{};
        // Adding zero turns a minus zero into zero.
        std::snprintf(buffer.data(), buffer.size(), " %.3f", std::round(value * 1000) / 1000 + 0.0);
        text += buffer.data();
    }
    return text;
}

template <class Enum, std::size_t N>
std::string Name(const std::array<const char*, N>& names, Enum value) {
    return std::string(" ") + names[static_cast<std::size_t>(value)];
}

} // namespace

std::string DrawingText(const Drawing& drawing) {
    std::string text = "surface" + Numbers({drawing.width, drawing.height}) + "\n";
    for (const DrawingArea& area : drawing.areas)
        text += "area" + Numbers({area.x, area.y, area.width, area.height}) +
                Name(ColourNames, area.colour) + "\n";
    for (const DrawingLine& line : drawing.lines)
        text += "line" + Numbers({line.x1, line.y1, line.x2, line.y2, line.width}) +
                Name(ColourNames, line.colour) + (line.dashed ? " dashed\n" : "\n");
    for (const DrawingCircle& circle : drawing.circles)
        text += "circle" + Numbers({circle.x, circle.y, circle.radius}) +
                Name(ColourNames, circle.colour) + "\n";
    for (const DrawingMark& mark : drawing.marks)
        text += "mark" + Numbers({mark.x, mark.y, mark.radius}) + " " +
                std::to_string(mark.series) + (mark.isFilled ? " filled\n" : "\n");
    for (const DrawingLabel& label : drawing.labels)
        text += "label" + Numbers({label.x, label.y, label.heightsDown, label.points}) +
                Name(AcrossNames, label.across) + Name(AlongNames, label.along) +
                (label.turned ? " turned " : " ") + label.text + "\n";
    return text;
}

std::string ExampleDrawings(const std::string& projectPath) {
    constexpr double AreaWidth = 9000;
    constexpr double AreaHeight = 7000;
    constexpr double LetterWidth = 11520;
    constexpr double LetterHeight = 15120;
    Paper letter;
    letter.printableWidth = LetterWidth;
    letter.printableHeight = LetterHeight;
    Analysis analysis;
    OpenProjectFile(projectPath, analysis);
    PrepareComputation(analysis);
    Compute(analysis);
    return "on screen\n" +
           DrawingText(DrawPlot(PlotContents(*analysis.computation),
                                ScreenPlotLayout(AreaWidth, AreaHeight))) +
           "on Letter\n" + DrawingText(DrawPlotPage(analysis, letter, ArialMeasure()));
}

} // namespace quarnel
