#include "system/PrintQueue.h"

#include <QDir>
#include <QLibrary>
#include <QStorageInfo>

namespace quarnel {

namespace {

/// Status codes of the Internet Printing Protocol up to here are successes (RFC 8011).
constexpr int LastSuccess = 0xFF;

/// Room asked for: a plot of 100,000 scattered points was measured to take 3.4 MB, a page of the
/// report up to 11 KB.
constexpr qint64 BytesOfDocument = qint64{16} * 1024 * 1024;
constexpr qint64 BytesOfPage = qint64{32} * 1024;

} // namespace

QString RefusalOfLastDocument() {
    // The library is the one that Qt's own printing has loaded, so there is nothing to link; where
    // it is missing, Qt has no printers either.
    QLibrary cups(QStringLiteral("cups"), 2);
    const auto status = reinterpret_cast<int (*)()>(cups.resolve("cupsLastError"));
    const auto words = reinterpret_cast<const char* (*)()>(cups.resolve("cupsLastErrorString"));
    if (status == nullptr || words == nullptr)
        return {};
    if (const int answer = status(); answer >= 0 && answer <= LastSuccess)
        return {};
    const QString refusal = QString::fromUtf8(words()).trimmed();
    return refusal.isEmpty() ? QStringLiteral("no reason given") : refusal;
}

bool HasRoomForPages(std::size_t pages) {
    const QStorageInfo storage(QDir::tempPath());
    return !storage.isValid() ||
           storage.bytesAvailable() >= BytesOfDocument + static_cast<qint64>(pages) * BytesOfPage;
}

} // namespace quarnel
