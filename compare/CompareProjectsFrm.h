#pragma once

#include "compare/CompareReading.h"
#include "compare/CompareStatistics.h"
#include "compare/CompareTableModel.h"
#include "kcompute/AnalysisRun.h"
#include "output/OutputFile.h"

#include <QDialog>
#include <QStringList>
#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTimer;

namespace quarnel {

class CompareGrid;
class DrawingWidget;
class SaidLine;

/// The window "Compare Projects": projects on disk side by side. It changes none of them; the
/// project that is being edited is only in it as its saved file.
class CompareProjectsFrm : public QDialog {
    Q_OBJECT
public:
    /// `analysis` is the program's; `hasUnsavedChanges` says whether its project differs from its
    /// file.
    CompareProjectsFrm(const Analysis& analysis, std::function<bool()> hasUnsavedChanges,
                       QWidget* parent = nullptr);
    ~CompareProjectsFrm() override;

    /// Adds the projects at `paths` in their order, a folder's in natural order, and begins to read
    /// them.
    void Add(const std::vector<std::string>& paths);

Q_SIGNALS:
    /// The user wants to work on the project at `path` (the name's own bytes).
    void OpenRequested(const std::string& path);
    /// A file was written or could not be; `said` names it. The window itself says it too.
    void Told(const QString& said);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// Files to read, each with the number of its row; a row of that number is made anew.
    struct Work {
        std::vector<std::string> files;
        std::vector<std::size_t> ids;
        bool areReadAgain = false; ///< rows that have gone meanwhile stay gone
    };

    // The window, built once.
    QWidget* BuildContent();
    QLayout* BuildCommands();
    QLayout* BuildLists();
    QLayout* BuildGrid();
    QWidget* BuildStatistics();
    QWidget* BuildPlot();
    QCheckBox* BuildTimeLag();
    QLayout* BuildOutput();
    QWidget* BuildProgress();
    QWidget* BuildSaid();
    QComboBox* AddList(QBoxLayout* row, const QString& caption, QComboBox* list);

    // Reading.
    void ChooseProjects();
    void ReadAgain();
    void CancelReading();
    void StartNext();
    void TakeRows();
    void EndRun();
    std::deque<Work> Unread();
    Work AllRowsAgain() const;
    void ShowProgress();

    // The rows.
    std::vector<std::size_t> ChosenPlaces() const; ///< ascending
    std::vector<std::size_t> ChosenIds() const;
    std::size_t CurrentId() const;
    std::size_t NeighbourOfChosen() const;
    void ChangeRows(const CompareTableModel::RowChange& change,
                    const std::vector<std::size_t>& chosenIds, std::size_t currentId);
    void RemoveChosen();
    void MoveChosenUp();
    void MoveChosenDown();
    void MoveChosen(int by);
    void OpenRow(const QModelIndex& index);
    void ChooseUnit();
    void ChooseGroup();

    // What is shown.
    void ShowComparison();
    void ShowChoice();
    void ShowStatistics(const std::vector<std::size_t>& groups);
    void ShowPlot(const std::vector<std::size_t>& groups);
    QString PlotCaption(const std::vector<std::size_t>& groups) const;
    std::vector<std::size_t> ChosenGroups() const; ///< in the order of their first chosen rows
    std::vector<std::size_t> PlottedTests(const std::vector<std::size_t>& groups) const;
    void ShowOpenProject();

    // What goes out.
    void CopyRows();
    void CopyTable();
    QString TableText(const std::vector<int>& shownRows) const;
    void SaveTable();
    bool SavePdf(const QString& path);
    bool IsOneOfTheProjects(const std::string& path) const;
    bool SaveTo(const QString& what, const QString& path,
                const std::function<FileFailure(const std::string&)>& save);
    OutputOwner Owner();
    void Tell(const QString& said);
    void WriteRecords();
    bool ReadForRecord(const std::string& project, AnalysisRun& run);
    void WriteTextRecords(const QString& folder, const std::vector<std::string>& projects);
    void WritePdfRecord(const QString& folder, const std::vector<std::string>& projects);
    bool MayReplace(const QString& folder, const std::vector<std::string>& names);

    const Analysis& analysis_;
    std::function<bool()> hasUnsavedChanges_;
    CompareReading reading_;
    Work current_;         ///< being read
    std::size_t done_ = 0; ///< files of it whose rows have come
    std::deque<Work> waiting_;
    bool isReadAgainAsked_ = false; ///< at the end of the run
    std::size_t nextId_ = 0;

    CompareTableModel* model_ = nullptr;
    CompareGrid* grid_ = nullptr;
    QPlainTextEdit* statistics_ = nullptr;
    QLabel* plotCaption_ = nullptr;
    DrawingWidget* plot_ = nullptr;
    QCheckBox* timeLag_ = nullptr;
    QComboBox* lengthUnit_ = nullptr;
    QComboBox* timeUnit_ = nullptr;
    QComboBox* group_ = nullptr;
    std::vector<QPushButton*> choiceButtons_; ///< that need a chosen row
    std::vector<QPushButton*> tableButtons_;  ///< that need a row
    QWidget* progress_ = nullptr;
    QProgressBar* bar_ = nullptr;
    SaidLine* said_ = nullptr;
    QTimer* openProjectLook_ = nullptr;
    QTimer* takeRows_ = nullptr; ///< runs while there are rows to take
};

} // namespace quarnel
