// What leaves the window "Compare Projects": copies, the table as a file, and records of tests.

#include "compare/CompareCsv.h"
#include "compare/CompareGrid.h"
#include "compare/CompareProjectsFrm.h"
#include "compare/CompareSheet.h"
#include "compare/ProjectPaths.h"
#include "compare/RecordPages.h"
#include "compare/TestRecord.h"
#include "output/PagePainter.h"
#include "project/ProjectFileDialogs.h"
#include "system/Locale.h"
#include "system/ReplaceFile.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"
#include "widgets/SaidLine.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <algorithm>
#include <memory>
#include <numeric>
#include <utility>

namespace quarnel {

namespace {

const QString Title = QStringLiteral("Compare Projects");
const QString PdfFilter = QStringLiteral("PDF (*.pdf)");
const QString PdfEnding = QStringLiteral(".pdf");
/// Names that a question lists before it counts the others.
constexpr qsizetype MostNames = 20;
/// The PDF of the records of several tests.
const QString RecordsPdfName = QStringLiteral("slug-test-records.pdf");

QList<FileKind> TableKinds() {
    return {{QStringLiteral("CSV (*.csv)(*.csv)"), QStringLiteral(".csv")},
            {QStringLiteral("PDF (*.pdf)(*.pdf)"), PdfEnding}};
}

FileFailure SaveText(const std::string& path, const std::string& text) {
    return SaveFileBytes(path, text);
}

FileFailure SavePages(const std::string& path, const QPageLayout& layout, const QString& title,
                      const PagesFor& pagesFor) {
    const QByteArray bytes = PdfOfPages(layout, title, pagesFor);
    if (bytes.isEmpty())
        return FileFailure::OutOfMemory;
    return SaveFileBytes(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

/// A cell as spreadsheets take it: its tabs and line ends would end it, and a text that begins like
/// a formula would become one.
QString SpreadsheetCell(const QString& text) {
    QString cell = text;
    for (QChar& character : cell)
        if (character == u'\t' || character == u'\n' || character == u'\r')
            character = u' ';
    const bool isNumber = [&cell] {
        bool ok = false;
        cell.toDouble(&ok);
        return ok;
    }();
    if (!cell.isEmpty() && QStringLiteral("=+-@").contains(cell.front()) && !isNumber &&
        cell.size() > 1)
        cell.prepend(u'\'');
    return cell;
}

/// Asks for the folder that records go into and what they are to be.
class RecordDialog : public QFileDialog {
public:
    explicit RecordDialog(QWidget* parent)
        : QFileDialog(parent, QStringLiteral("Record of the Test")) {
        setObjectName(QStringLiteral("RecordDialog"));
        // Desktops' own dialogs for folders offer no choice of a kind.
        setOption(DontUseNativeDialog);
        setOption(HideNameFilterDetails, false);
        setFileMode(Directory);
        setOption(ShowDirsOnly, false);
        setNameFilters({QStringLiteral("Text (*.txt)"), PdfFilter});
        setLabelText(Accept, QStringLiteral("&Choose"));
    }
};

} // namespace

OutputOwner CompareProjectsFrm::Owner() {
    return {this, analysis_.file, [this](const QString& said) { Tell(said); }};
}

void CompareProjectsFrm::Tell(const QString& said) {
    said_->Say(said);
    Q_EMIT Told(said);
}

// ---- Copies -------------------------------------------------------------------------------------

QString CompareProjectsFrm::TableText(const std::vector<int>& shownRows) const {
    const int columns = model_->columnCount();
    QString text;
    const auto add = [&text, columns](int column, const QString& cell) {
        text += cell + QLatin1Char(column + 1 < columns ? '\t' : '\n');
    };
    for (int column = 0; column < columns; ++column)
        add(column, model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    for (const int row : shownRows)
        for (int column = 0; column < columns; ++column)
            add(column, SpreadsheetCell(model_->index(row, column).data().toString()));
    return text;
}

void CompareProjectsFrm::CopyRows() {
    std::vector<int> rows;
    const QModelIndexList chosen = grid_->selectionModel()->selectedRows();
    for (const QModelIndex& index : chosen)
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    if (!rows.empty())
        QGuiApplication::clipboard()->setText(TableText(rows));
}

void CompareProjectsFrm::CopyTable() {
    std::vector<int> rows(static_cast<std::size_t>(model_->rowCount()));
    std::iota(rows.begin(), rows.end(), 0);
    QGuiApplication::clipboard()->setText(TableText(rows));
}

// ---- The table as a file ------------------------------------------------------------------------

bool CompareProjectsFrm::IsOneOfTheProjects(const std::string& path) const {
    return std::ranges::any_of(
        model_->Rows(), [&path](const CompareRow& row) { return IsSameFile(path, row.file); });
}

/// A slip of the fingers must not put a table or a record in the place of a project.
bool CompareProjectsFrm::SaveTo(const QString& what, const QString& path,
                                const std::function<FileFailure(const std::string&)>& save) {
    if (IsOneOfTheProjects(ToUtf8(path))) {
        ShowMessage(this, QStringLiteral("The %1 needs a file of its own.").arg(what));
        return false;
    }
    return SaveOutput(Owner(), what, path, save);
}

void CompareProjectsFrm::SaveTable() {
    const QString path = ChooseNameOfKind(this, QStringLiteral("Save As"), TableKinds());
    if (path.isEmpty())
        return;
    RememberFolderOf(path);
    if (path.endsWith(PdfEnding, Qt::CaseInsensitive)) {
        SavePdf(path);
        return;
    }
    SaveTo(QStringLiteral("table"), path, [this](const std::string& name) {
        return SaveText(name, CompareCsv(model_->Rows(), model_->Compared()));
    });
}

bool CompareProjectsFrm::SavePdf(const QString& path) {
    QPageLayout layout = PdfPageLayout();
    layout.setOrientation(QPageLayout::Landscape);
    const PagesFor pagesFor = [this](const Paper& paper) {
        const auto measure = PageMeasure();
        const auto sheet = std::make_shared<Sheet>(CompareSheet(
            model_->Rows(), model_->Compared(), timeLag_->isChecked(), paper, *measure));
        return Pages{sheet->Count(),
                     [measure, sheet](std::size_t page) { return sheet->Page(page); }};
    };
    return SaveTo(QStringLiteral("PDF"), path, [&](const std::string& name) {
        return SavePages(name, layout, Title, pagesFor);
    });
}

// ---- Records ------------------------------------------------------------------------------------

void CompareProjectsFrm::WriteRecords() {
    std::vector<std::string> projects;
    for (const std::size_t place : ChosenPlaces())
        if (model_->Rows()[place].isRead)
            projects.push_back(model_->Rows()[place].file);
    if (projects.empty()) {
        ShowMessage(this, QStringLiteral("None of the chosen rows is a project."), Title);
        return;
    }
    RecordDialog dialog(this);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString folder = dialog.selectedFiles().constFirst();
    if (dialog.selectedNameFilter() == PdfFilter)
        WritePdfRecord(folder, projects);
    else
        WriteTextRecords(folder, projects);
}

/// Whether none of the names is in the folder, or the user wants those that are replaced.
bool CompareProjectsFrm::MayReplace(const QString& folder, const std::vector<std::string>& names) {
    QStringList there;
    for (const std::string& name : names)
        if (QFileInfo::exists(QDir(folder).filePath(ToQString(name))))
            there.append(ToQString(name));
    if (there.isEmpty())
        return true;
    QString question = there.size() == 1 ? QStringLiteral("Replace 1 file?")
                                         : QStringLiteral("Replace %1 files?").arg(there.size());
    question += QStringLiteral("\n\n") + there.mid(0, MostNames).join(u'\n');
    if (there.size() > MostNames)
        question += QStringLiteral("\nand %1 more").arg(there.size() - MostNames);
    return AskYesNo(this, question, Title);
}

/// Reads a project again for its record; one that can no longer be read is told.
bool CompareProjectsFrm::ReadForRecord(const std::string& project, AnalysisRun& run) {
    {
        const BusyPointer busy;
        run = RunAnalysis(project, SystemDecimalSeparator());
    }
    if (!run.isRead)
        ShowMessage(this,
                    ToQString(std::string(FileNameOf(project)) + ": " +
                              (run.messages.empty() ? std::string() : run.messages.front())),
                    Title);
    return run.isRead;
}

void CompareProjectsFrm::WriteTextRecords(const QString& folder,
                                          const std::vector<std::string>& projects) {
    const std::vector<std::string> names = RecordNames(projects);
    if (!MayReplace(folder, names))
        return;
    for (std::size_t i = 0; i < projects.size(); ++i) {
        AnalysisRun run;
        if (!ReadForRecord(projects[i], run))
            continue;
        const QString path = QDir(folder).filePath(ToQString(names[i]));
        const bool isSaved = SaveTo(QStringLiteral("record"), path, [&](const std::string& name) {
            return SaveText(name, TestRecordText(run.analysis, run.messages));
        });
        // What is wrong with the folder is wrong for the others too.
        if (!isSaved)
            return;
    }
}

namespace {

using Runs = std::vector<std::unique_ptr<AnalysisRun>>;

/// The records of several projects as one document.
Pages PagesOf(const Runs& runs, const Paper& paper) {
    const auto measure = PageMeasure();
    const auto records = std::make_shared<std::vector<RecordPages>>();
    std::size_t count = 0;
    for (const std::unique_ptr<AnalysisRun>& run : runs) {
        records->emplace_back(*run, paper, *measure);
        count += records->back().Count();
    }
    return {count, [measure, records](std::size_t page) {
                auto record = records->begin();
                for (; page >= record->Count(); ++record)
                    page -= record->Count();
                return record->Page(page);
            }};
}

} // namespace

void CompareProjectsFrm::WritePdfRecord(const QString& folder,
                                        const std::vector<std::string>& projects) {
    const QString name =
        projects.size() == 1 ? ToQString(RecordNames(projects, ".pdf").front()) : RecordsPdfName;
    if (!MayReplace(folder, {ToUtf8(name)}))
        return;
    Runs runs;
    for (const std::string& project : projects) {
        auto run = std::make_unique<AnalysisRun>();
        if (ReadForRecord(project, *run))
            runs.push_back(std::move(run));
    }
    if (runs.empty())
        return;
    SaveTo(QStringLiteral("record"), QDir(folder).filePath(name), [&](const std::string& path) {
        return SavePages(path, PdfPageLayout(), ToQString(RecordTitle),
                         [&runs](const Paper& paper) { return PagesOf(runs, paper); });
    });
}

} // namespace quarnel
