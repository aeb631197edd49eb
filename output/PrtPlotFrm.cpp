#include "output/PrtPlotFrm.h"

namespace quarnel {

PrtPlotFrm::PrtPlotFrm(Analysis& analysis, QWidget* parent)
    : QDialog(parent)
    , analysis_(analysis) {
    setObjectName(QStringLiteral("PrtPlotFrm"));
    setWindowTitle(QStringLiteral("Print The Plot"));
}

void PrtPlotFrm::ShowState() {}

} // namespace quarnel
