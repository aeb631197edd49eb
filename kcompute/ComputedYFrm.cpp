#include "kcompute/ComputedYFrm.h"

namespace quarnel {

ComputedYFrm::ComputedYFrm(Analysis& analysis, QWidget* parent)
    : QDialog(parent)
    , analysis_(analysis) {
    setObjectName(QStringLiteral("ComputedYFrm"));
    setWindowTitle(QStringLiteral("Computation Details"));
}

void ComputedYFrm::ShowState() {}

} // namespace quarnel
