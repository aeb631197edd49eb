#pragma once

#include <QMenu>
#include <QString>
#include <QStringList>

namespace quarnel {

/// The menu "Open Recent": the projects opened or saved last, the latest first. One that is missing
/// is greyed; a command forgets them all. The list is kept in the user's settings and read when the
/// menu opens, so that all windows share it.
class RecentProjects : public QMenu {
    Q_OBJECT
public:
    explicit RecentProjects(QWidget* parent = nullptr);

    /// A project was opened from or saved at this path.
    static void Note(const QString& path);
    /// At most ten paths, the latest first.
    static QStringList Paths();

Q_SIGNALS:
    void Chosen(const QString& path);

private:
    void Fill();
};

} // namespace quarnel
