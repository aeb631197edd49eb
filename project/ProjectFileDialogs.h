#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QFileDialog;
class QWidget;

namespace quarnel {

/// Asks for the project to open: an existing file. Returns its full path without blanks around it,
/// "" when the user cancelled.
QString ChooseProjectToOpen(QWidget* parent);

/// Asks for any number of projects, as above; none when the user cancelled.
QStringList ChooseProjectsToOpen(QWidget* parent, const QString& caption);

/// The same for another kind of file, with the filters as below.
QString ChooseFileToOpen(QWidget* parent, const QString& caption, const QStringList& filters);

/// Asks for the name to save a project under, exactly as typed (no suffix is added), and confirms
/// the overwriting of an existing file. Returns the full path without blanks around it, "" when the
/// user cancelled.
QString ChooseNameToSave(QWidget* parent);

/// The same for another kind of file. A filter is what the dialog shows, followed by its patterns
/// in parentheses: "Quarnel 2 (*.res)(*.res)". The dialog opens with `suggestedName`, in which all
/// but the ending is selected.
QString ChooseNameToSave(QWidget* parent, const QString& caption, const QStringList& filters,
                         const QString& suggestedName = {});

/// A kind of file that its ending tells.
struct FileKind {
    QString filter; ///< as above
    QString ending; ///< ".pdf"
};

/// The same for a file of one of several kinds. A name that ends in none of them, as "MW-3.1" does,
/// gets the ending of the chosen kind, before the dialog asks whether the file exists.
QString ChooseNameOfKind(QWidget* parent, const QString& caption, const QList<FileKind>& kinds,
                         const QString& suggestedName = {});

/// Puts a suggested name into a dialog for saving; "" is none.
void SuggestName(QFileDialog& dialog, const QString& name);

/// The folder that a dialog starts in.
QString FolderToStartIn();

/// The next dialog starts in the folder of `path`, in this run of the program or a later one.
void RememberFolderOf(const QString& path);

} // namespace quarnel
