#include "recovery/RecoveryDataPanel.h"

namespace quarnel {

RecoveryDataPanel::RecoveryDataPanel(Analysis& analysis, QWidget* parent)
    : Panel(analysis, parent) {}

void RecoveryDataPanel::ShowState() {}

void RecoveryDataPanel::ShowPreparedData() {}

} // namespace quarnel
