#pragma once

#include <QString>
#include <QStringDecoder>
#include <algorithm>
#include <string>
#include <string_view>

namespace quarnel {

/// Texts of the core are UTF-8; windows show QString. These two are the only crossing.
inline QString ToQString(std::string_view text) {
    // A first U+FEFF is a character of the text: fromUtf8 would take it for the mark of an encoding
    // and drop it.
    if (text.starts_with("\xEF\xBB\xBF")) {
        QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
        return decode(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    }
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string ToUtf8(const QString& text) {
    return text.toStdString();
}

/// A heading of the core has CR LF as its line break; a header view wants one newline.
inline QString ToHeading(std::string_view text) {
    return ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

/// `text` as a box or cell of one line holds it: line ends that follow each other become one blank,
/// those at either end of the text vanish.
inline QString OneLine(const QString& text) {
    const auto isLineEnd = [](QChar c) { return c == QLatin1Char('\r') || c == QLatin1Char('\n'); };
    if (std::none_of(text.begin(), text.end(), isLineEnd))
        return text;
    QString line;
    line.reserve(text.size());
    bool ended = false;
    for (const QChar c : text) {
        if (!isLineEnd(c)) {
            if (ended && !line.isEmpty())
                line.append(QLatin1Char(' '));
            line.append(c);
        }
        ended = isLineEnd(c);
    }
    return line;
}

} // namespace quarnel
