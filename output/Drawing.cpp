#include "output/Drawing.h"

#include <utility>

namespace quarnel {

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
    for (DrawingMark mark : part.marks) {
        mark.x += x;
        mark.y += y;
        whole.marks.push_back(mark);
    }
    for (DrawingLabel label : part.labels) {
        label.x += x;
        label.y += y;
        whole.labels.push_back(std::move(label));
    }
}

} // namespace quarnel
