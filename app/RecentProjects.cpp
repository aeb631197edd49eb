#include "app/RecentProjects.h"

#include <QFileInfo>
#include <QSettings>
#include <algorithm>

namespace quarnel {

namespace {

constexpr qsizetype MostProjects = 10;
const QString SettingsKey = QStringLiteral("recentProjects");

/// "&1 MW-3.qn2 - /data/site": the name first, since the folders are often the same.
QString EntryText(qsizetype number, const QString& path) {
    const QFileInfo file(path);
    const QString mnemonic =
        number < 10 ? QStringLiteral("&%1").arg(number) : QStringLiteral("1&0");
    QString text = file.fileName() + QStringLiteral(" - ") + file.path();
    return mnemonic + QLatin1Char(' ') + text.replace(QLatin1Char('&'), QStringLiteral("&&"));
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
    addSeparator();
    QAction* forget =
        addAction(QStringLiteral("&Clear List"), this, [] { QSettings().remove(SettingsKey); });
    forget->setObjectName(QStringLiteral("mnuClearRecent"));
    forget->setEnabled(!paths.isEmpty());
}

} // namespace quarnel
