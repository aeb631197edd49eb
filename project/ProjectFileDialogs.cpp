#include "project/ProjectFileDialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QStandardPaths>
#include <algorithm>

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
        : QFileDialog(parent, caption, FolderToStartIn()) {
        setOption(QFileDialog::HideNameFilterDetails);
        setNameFilters(filters);
    }

    void MakeForSaving(const QString& suggestedName) {
        setObjectName(QStringLiteral("SaveProjectDialog"));
        setAcceptMode(AcceptSave);
        setFileMode(AnyFile);
        SuggestName(*this, suggestedName);
    }

    /// The chosen name, "" when there is none.
    QString Choose() {
        if (exec() != QDialog::Accepted)
            return QString();
        if (!nameWithQuotes_.isEmpty())
            return nameWithQuotes_;
        return selectedFiles().isEmpty() ? QString() : TrimmedName(selectedFiles().constFirst());
    }

    /// From now on a name ends in one of the kinds.
    void SetKinds(const QList<FileKind>& kinds) {
        kinds_ = kinds;
        // For a desktop's own dialog, which does not ask this one.
        SetDefaultSuffix();
        connect(this, &QFileDialog::filterSelected, this, &ProjectFileDialog::SetDefaultSuffix);
    }

    /// The chosen names.
    QStringList ChooseSeveral() {
        if (exec() != QDialog::Accepted)
            return QStringList();
        return nameWithQuotes_.isEmpty() ? selectedFiles() : QStringList(nameWithQuotes_);
    }

protected:
    /// The name counts without the blanks around it, before the dialog asks whether it exists.
    void accept() override {
        auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (name != nullptr)
            name->setText(WithEnding(TrimmedName(name->text())));
        if (name != nullptr && HasQuotesOfItsOwn(name->text()))
            AcceptNameWithQuotes(*name);
        else
            QFileDialog::accept();
    }

private:
    const FileKind& ChosenKind() const {
        const auto chosen =
            std::find_if(kinds_.begin(), kinds_.end(), [this](const FileKind& kind) {
                return kind.filter.startsWith(selectedNameFilter());
            });
        return chosen == kinds_.end() ? kinds_.constFirst() : *chosen;
    }

    void SetDefaultSuffix() { setDefaultSuffix(ChosenKind().ending); }

    QString WithEnding(const QString& name) const {
        const bool isWhole =
            std::any_of(kinds_.begin(), kinds_.end(), [&name](const FileKind& kind) {
                return name.endsWith(kind.ending, Qt::CaseInsensitive);
            });
        const bool isFolder = name.isEmpty() || directory().exists(name + QLatin1Char('/'));
        return kinds_.isEmpty() || isWhole || isFolder ? name : name + ChosenKind().ending;
    }

    /// Qt takes double quotes for the marks around each of several names and drops what stands
    /// outside; only one pair around the whole is that here.
    bool HasQuotesOfItsOwn(const QString& name) const {
        const QLatin1Char quote('"');
        if (fileMode() == ExistingFiles && !QFileInfo(directory(), name).exists())
            return false; // the marks around several names
        const bool wrapped = name.size() > 2 && name.count(quote) == 2 && name.startsWith(quote) &&
                             name.endsWith(quote);
        return name.contains(quote) && !wrapped;
    }

    /// Does for such a name what the dialog does for others.
    void AcceptNameWithQuotes(QLineEdit& name) {
        const QFileInfo file(directory(), name.text());
        if (file.isDir()) {
            setDirectory(file.filePath());
            name.clear();
            return;
        }
        if (MayTake(file)) {
            nameWithQuotes_ = file.absoluteFilePath();
            QDialog::accept();
        }
    }

    bool MayTake(const QFileInfo& file) {
        if (acceptMode() == AcceptSave)
            return !file.exists() ||
                   QMessageBox::warning(this, windowTitle(),
                                        QStringLiteral("%1 already exists.\nDo you want to replace "
                                                       "it?")
                                            .arg(file.fileName()),
                                        QMessageBox::Yes | QMessageBox::No,
                                        QMessageBox::No) == QMessageBox::Yes;
        if (!file.exists())
            QMessageBox::warning(this, windowTitle(),
                                 QStringLiteral("%1\nFile not found.\nPlease verify the correct "
                                                "file name was given.")
                                     .arg(file.fileName()));
        return file.exists();
    }

    QList<FileKind> kinds_; ///< none where a name counts as it is typed
    QString nameWithQuotes_;
};

} // namespace

QString ChooseProjectToOpen(QWidget* parent) {
    return ChooseFileToOpen(parent, QStringLiteral("Open"), ProjectFilters());
}

QStringList ChooseProjectsToOpen(QWidget* parent, const QString& caption) {
    ProjectFileDialog dialog(parent, caption, ProjectFilters());
    dialog.setObjectName(QStringLiteral("OpenProjectsDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    return dialog.ChooseSeveral();
}

QString ChooseFileToOpen(QWidget* parent, const QString& caption, const QStringList& filters) {
    ProjectFileDialog dialog(parent, caption, filters);
    dialog.setObjectName(QStringLiteral("OpenProjectDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.Choose();
}

QString ChooseNameToSave(QWidget* parent) {
    return ChooseNameToSave(parent, QStringLiteral("Save As"), ProjectFilters());
}

QString ChooseNameToSave(QWidget* parent, const QString& caption, const QStringList& filters,
                         const QString& suggestedName) {
    ProjectFileDialog dialog(parent, caption, filters);
    dialog.MakeForSaving(suggestedName);
    return dialog.Choose();
}

QString ChooseNameOfKind(QWidget* parent, const QString& caption, const QList<FileKind>& kinds,
                         const QString& suggestedName) {
    QStringList filters;
    for (const FileKind& kind : kinds)
        filters.append(kind.filter);
    ProjectFileDialog dialog(parent, caption, filters);
    dialog.MakeForSaving(suggestedName);
    dialog.SetKinds(kinds);
    return dialog.Choose();
}

void SuggestName(QFileDialog& dialog, const QString& name) {
    if (name.isEmpty())
        return;
    dialog.selectFile(name);
    // Who types another name keeps the ending.
    if (auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        edit->setSelection(0, static_cast<int>(name.lastIndexOf(QLatin1Char('.'))));
}

QString FolderToStartIn() {
    const QString folder = QSettings().value(RecentFolderKey).toString();
    if (!folder.isEmpty() && QFileInfo(folder).isDir())
        return folder;
    // A folder that is not there would come up in the dialog as the name of a file.
    for (const auto& place : {QStandardPaths::DocumentsLocation, QStandardPaths::HomeLocation})
        if (const QString usual = QStandardPaths::writableLocation(place); QFileInfo(usual).isDir())
            return usual;
    return QDir::currentPath();
}

void RememberFolderOf(const QString& path) {
    QSettings().setValue(RecentFolderKey, QFileInfo(path).absolutePath());
}

} // namespace quarnel
