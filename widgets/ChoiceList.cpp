#include "widgets/ChoiceList.h"

#include "widgets/QtTexts.h"

namespace quarnel {

QComboBox* MakeChoiceList(const QString& name, std::span<const std::string_view> entries,
                          const QString& toolTip, const QString& accessibleName) {
    auto* list = new QComboBox;
    list->setObjectName(name);
    for (const std::string_view entry : entries)
        list->addItem(ToQString(entry));
    list->setToolTip(toolTip);
    list->setAccessibleName(accessibleName);
    return list;
}

} // namespace quarnel
