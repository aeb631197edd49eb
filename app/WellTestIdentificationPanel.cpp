#include "app/WellTestIdentificationPanel.h"

namespace quarnel {

WellTestIdentificationPanel::WellTestIdentificationPanel(Analysis& analysis, QWidget* parent)
    : Panel(analysis, parent) {}

void WellTestIdentificationPanel::ShowState() {}

} // namespace quarnel
