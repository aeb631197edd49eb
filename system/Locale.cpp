#include "system/Locale.h"

#include <QLocale>

namespace quarnel {

std::string SystemDecimalSeparator() {
    return QLocale::system().decimalPoint().toStdString();
}

} // namespace quarnel
