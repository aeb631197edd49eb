#include "app/RecentProjects.h"

#include <QFileInfo>
#include <QLocale>
#include <QSettings>
#include <algorithm>
#include <utility>

namespace quarnel {

namespace {

constexpr qsizetype MostProjects = 10;
const QString SettingsKey = QStringLiteral("recentProjects");

/// As the text of an entry: no letter of a name is underlined, nor taken for a key or another line.
QString AsEntry(QString text) {
    text.replace(QLatin1Char('&'), QStringLiteral("&&"));
    text.replace(QLatin1Char('\t'), QLatin1Char(' '));
    return text.replace(QLatin1Char('\n'), QLatin1Char(' '));
}

/// "&1 MW-3.qn2 - /data/site": the name first, since the folders are often the same.
QString EntryText(qsizetype number, const QString& path) {
    const QFileInfo file(path);
    const QString mnemonic =
        number < 10 ? QStringLiteral("&%1").arg(number) : QStringLiteral("1&0");
    return mnemonic + QLatin1Char(' ') +
           AsEntry(file.fileName() + QStringLiteral(" - ") + file.path());
}

} // namespace

RecentProjects::RecentProjects(QWidget* parent)
    : QMenu(QStringLiteral("Open &Recent"), parent) {
    setObjectName(QStringLiteral("mnuOpenRecent"));
    menuAction()->setObjectName(QStringLiteral("mnuOpenRecentEntry"));
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &RecentProjects::Fill);
    Fill();
}

QStringList RecentProjects::Paths() {
    return QSettings().value(SettingsKey).toStringList().mid(0, MostProjects);
}

void RecentProjects::Note(const QString& path) {
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList paths = Paths();
    paths.removeAll(absolute);
    paths.prepend(absolute);
    QSettings().setValue(SettingsKey, paths.mid(0, MostProjects));
}

void RecentProjects::Fill() {
    clear();
    const QStringList paths = Paths();
    for (qsizetype i = 0; i < paths.size(); ++i) {
        const QString& path = paths[i];
        QAction* entry =
            addAction(EntryText(i + 1, path), this, [this, path] { Q_EMIT Chosen(path); });
        const bool isThere = QFileInfo::exists(path);
        entry->setEnabled(isThere);
        entry->setToolTip(isThere ? path : path + QStringLiteral(" is not there"));
    }
    AddReplaced();
    addSeparator();
    QAction* forget =
        addAction(QStringLiteral("&Clear List"), this, [] { QSettings().remove(SettingsKey); });
    forget->setObjectName(QStringLiteral("mnuClearRecent"));
    forget->setEnabled(!paths.isEmpty());
}

void RecentProjects::ListReplaced(std::vector<ReplacedEntry> entries) {
    replaced_ = std::move(entries);
}

void RecentProjects::AddReplaced() {
    if (!replaced_.empty())
        addSeparator();
    for (const ReplacedEntry& entry : replaced_) {
        QAction* back = addAction(
            QStringLiteral("Bring Back %1, not saved, replaced %2")
                .arg(AsEntry(entry.name), QLocale().toString(entry.replaced, QLocale::ShortFormat)),
            this, [this, number = entry.number] { Q_EMIT BringBackChosen(number); });
        back->setObjectName(QStringLiteral("mnuBringBack_") + QString::number(entry.number));
        back->setToolTip(QStringLiteral("Go on with this project as it was, not saved yet"));
    }
}

} // namespace quarnel
