#pragma once

#include <QDateTime>
#include <QMenu>
#include <QString>
#include <QStringList>
#include <vector>

namespace quarnel {

/// The menu "Open Recent": the projects opened or saved last, the latest first. One that is missing
/// is greyed; a command forgets them all. The list is kept in the user's settings and read when the
/// menu opens, so that all windows share it. Below stands this window's unsaved work that was
/// replaced by another project.
class RecentProjects : public QMenu {
    Q_OBJECT
public:
    explicit RecentProjects(QWidget* parent = nullptr);

    /// A project was opened from or saved at this path.
    static void Note(const QString& path);
    /// At most ten paths, the latest first.
    static QStringList Paths();

    /// An entry for work that another project has replaced before it was saved.
    struct ReplacedEntry {
        int number;   ///< of the work
        QString name; ///< of its project
        QDateTime replaced;
    };
    /// Lists such work below the projects when the menu opens next.
    void ListReplaced(std::vector<ReplacedEntry> entries);

Q_SIGNALS:
    void Chosen(const QString& path);
    void BringBackChosen(int number);

private:
    void Fill();
    void AddReplaced();

    std::vector<ReplacedEntry> replaced_;
};

} // namespace quarnel
