#include "kcompute/ComputePanel.h"

namespace quarnel {

ComputePanel::ComputePanel(Analysis& analysis, QWidget* parent)
    : Panel(analysis, parent) {}

void ComputePanel::ShowState() {}

void ComputePanel::ShowPreparedData() {}

void ComputePanel::ShowHeadings() {}

} // namespace quarnel
