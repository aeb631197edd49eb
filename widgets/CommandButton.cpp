#include "widgets/CommandButton.h"

namespace quarnel {

QPushButton* MakeCommandButton(const QString& name, const QString& text, const QString& toolTip) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    return button;
}

} // namespace quarnel
