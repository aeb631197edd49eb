#pragma once

#include <string>
#include <vector>

namespace quarnel {

// All positions and lengths are twips (1/1440 inch), x to the right and y down.

inline constexpr double TwipsPerInch = 1440;
inline constexpr double TwipsPerPoint = 20;

/// What a stroke is drawn in. Ink, Grid, Grey and Band follow the surface (text colour, a pale
/// line, one between both, an area that points stand out from); Red (255, 0, 0) and Blue (0, 0,
/// 255) are the same on every surface.
enum class DrawingColour { Ink, Grid, Red, Blue, Grey, Band };

enum class Across { Left, Centre, Right };
enum class Along { Top, Middle, Bottom };

struct DrawingLine {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    DrawingColour colour = DrawingColour::Ink;
    double width = 0;
    bool dashed = false;
};

/// A filled area without an outline, from its upper left corner.
struct DrawingArea {
    double x = 0, y = 0, width = 0, height = 0;
    DrawingColour colour = DrawingColour::Band;
};

struct DrawingCircle {
    double x = 0, y = 0;
    double radius = 0;
    DrawingColour colour = DrawingColour::Red;
};

/// How many series of marks can be told apart: each has a colour and a shape of its own.
inline constexpr int MarkSeriesCount = 12;

/// A mark of one of several series of points. The series gives both its colour and its shape, since
/// no colour may be the only sign of something.
struct DrawingMark {
    double x = 0, y = 0;
    double radius = 0;
    int series = 0; ///< 0 to MarkSeriesCount - 1
    bool isFilled = false;
};

/// A text held at (x, y) by the given edges; it is measured only when painted. A text that stands
/// `heightsDown` text heights below y says so, since a drawing does not know how tall its text is.
struct DrawingLabel {
    double x = 0, y = 0;
    std::string text;
    Across across = Across::Left;
    Along along = Along::Top;
    double heightsDown = 0;
    double points = 9;    ///< font size
    bool turned = false;  ///< reads upwards, its middle at (x, y)
    double maxWidth = 0;  ///< a wider text is set smaller until it fits; 0 for no bound
    double maxHeight = 0; ///< the same for a taller text
    int group = 0;        ///< labels of one group above 0 are all as small as the smallest of them
    bool bold = false;
};

/// What a layout makes and a painter paints, on screen, on paper or into a picture.
struct Drawing {
    double width = 0, height = 0;   ///< of the surface
    std::vector<DrawingArea> areas; ///< below everything else
    std::vector<DrawingLine> lines;
    std::vector<DrawingCircle> circles;
    std::vector<DrawingMark> marks;
    std::vector<DrawingLabel> labels;
    bool IsEmpty() const {
        return areas.empty() && lines.empty() && circles.empty() && marks.empty() && labels.empty();
    }
};

/// Puts a drawing into another one, its corner at x, y.
void Place(const Drawing& part, double x, double y, Drawing& whole);

} // namespace quarnel
