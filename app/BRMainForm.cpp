#include "app/BRMainForm.h"

namespace quarnel {

BRMainForm::BRMainForm(QWidget* parent)
    : QMainWindow(parent) {
    setObjectName(QStringLiteral("BRMainForm"));
}

void BRMainForm::StartUp() {
    show();
}

void BRMainForm::DisplaySelectedPanel(int) {}

void BRMainForm::ShowState() {}

void BRMainForm::OpenPath(const QString&) {}

} // namespace quarnel
