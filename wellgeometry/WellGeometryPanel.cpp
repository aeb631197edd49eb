#include "wellgeometry/WellGeometryPanel.h"

namespace quarnel {

WellGeometryPanel::WellGeometryPanel(Analysis& analysis, QWidget* parent)
    : Panel(analysis, parent) {}

void WellGeometryPanel::ShowState() {}

} // namespace quarnel
