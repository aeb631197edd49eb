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

/// The system's file dialog with the program's three file types. Each filter holds its caption,
/// which names the pattern, and after it the pattern itself: a desktop's dialog shows the caption
/// alone. "All Files" is every file, also one without a dot in its name.
class ProjectFileDialog : public QFileDialog {
public:
    ProjectFileDialog(QWidget* parent, const QString& caption)
        : QFileDialog(parent, caption, RecentFolder()) {
        setOption(QFileDialog::HideNameFilterDetails);
        setNameFilters({QStringLiteral("Quarnel 2 (*.qn2)(*.qn2)"),
                        QStringLiteral("in files (*.in)(*.in)"),
                        QStringLiteral("All Files (*.*)(*)")});
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
    ProjectFileDialog dialog(parent, QStringLiteral("Open"));
    dialog.setObjectName(QStringLiteral("OpenProjectDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.Choose();
}

QString ChooseNameToSave(QWidget* parent) {
    ProjectFileDialog dialog(parent, QStringLiteral("Save As"));
    dialog.setObjectName(QStringLiteral("SaveProjectDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    return dialog.Choose();
}

void RememberFolderOf(const QString& path) {
    QSettings().setValue(RecentFolderKey, QFileInfo(path).absolutePath());
}

} // namespace quarnel
