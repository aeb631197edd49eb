#include "project/ProjectFileDialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QSettings>
#include <QStandardPaths>

namespace quarnel {

namespace {

const QString RecentFolderKey = QStringLiteral("files/recentFolder");

/// Blanks only, as everywhere in a project; a name may hold other white space.
QString TrimmedName(const QString& name) {
    const auto isBlank = [](QChar c) { return c == QLatin1Char(' '); };
    qsizetype first = 0;
    qsizetype last = name.size();
    while (first < last && isBlank(name[first]))
        ++first;
    while (last > first && isBlank(name[last - 1]))
        --last;
    return name.mid(first, last - first);
}

QString RecentFolder() {
    const QString folder = QSettings().value(RecentFolderKey).toString();
    if (!folder.isEmpty() && QFileInfo(folder).isDir())
        return folder;
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

/// Each filter holds its caption, which names the pattern, and after it the pattern itself: a
/// desktop's dialog shows the caption alone. "All Files" is every file, also one without a dot in
/// its name.
QStringList ProjectFilters() {
    return {QStringLiteral("Quarnel 2 (*.qn2)(*.qn2)"), QStringLiteral("in files (*.in)(*.in)"),
            QStringLiteral("All Files (*.*)(*)")};
}

/// The system's file dialog, which takes a name without the blanks around it.
class ProjectFileDialog : public QFileDialog {
public:
    ProjectFileDialog(QWidget* parent, const QString& caption, const QStringList& filters)
        : QFileDialog(parent, caption, RecentFolder()) {
        setOption(QFileDialog::HideNameFilterDetails);
        setNameFilters(filters);
    }

    /// The chosen name, "" when there is none.
    QString Choose() {
        if (exec() != QDialog::Accepted || selectedFiles().isEmpty())
            return QString();
        return TrimmedName(selectedFiles().constFirst());
    }

protected:
    /// The name counts without the blanks around it, before the dialog asks whether it exists.
    void accept() override {
        if (auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
            name->setText(TrimmedName(name->text()));
        QFileDialog::accept();
    }
};

} // namespace

QString ChooseProjectToOpen(QWidget* parent) {
    ProjectFileDialog dialog(parent, QStringLiteral("Open"), ProjectFilters());
    dialog.setObjectName(QStringLiteral("OpenProjectDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.Choose();
}

QString ChooseNameToSave(QWidget* parent) {
    return ChooseNameToSave(parent, QStringLiteral("Save As"), ProjectFilters());
}

QString ChooseNameToSave(QWidget* parent, const QString& caption, const QStringList& filters) {
    ProjectFileDialog dialog(parent, caption, filters);
    dialog.setObjectName(QStringLiteral("SaveProjectDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    return dialog.Choose();
}

void RememberFolderOf(const QString& path) {
    QSettings().setValue(RecentFolderKey, QFileInfo(path).absolutePath());
}

} // namespace quarnel
