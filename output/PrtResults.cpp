#include "output/PrtResults.h"

namespace quarnel {

PrtResults::PrtResults(Analysis& analysis, QWidget* parent)
    : QDialog(parent)
    , analysis_(analysis) {
    setObjectName(QStringLiteral("PrtResults"));
    setWindowTitle(QStringLiteral("Print/Save the Results"));
}

void PrtResults::ShowState() {}

} // namespace quarnel
