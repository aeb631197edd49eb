#include "app/SiteIdentificationPanel.h"

namespace quarnel {

SiteIdentificationPanel::SiteIdentificationPanel(Analysis& analysis, QWidget* parent)
    : Panel(analysis, parent) {}

void SiteIdentificationPanel::ShowState() {}

} // namespace quarnel
