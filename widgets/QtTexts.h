#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quarnel {

/// Texts of the core are UTF-8; windows show QString. These two are the only crossing.
inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string ToUtf8(const QString& text) {
    return text.toStdString();
}

/// A heading of the core has CR LF as its line break; a header view wants one newline.
inline QString ToHeading(std::string_view text) {
    return ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

} // namespace quarnel
