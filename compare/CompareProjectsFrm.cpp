#include "compare/CompareProjectsFrm.h"

#include "compare/CompareGrid.h"
#include "compare/CompareTableModel.h"
#include "compare/NormalizedDrawing.h"
#include "compare/ProjectPaths.h"
#include "output/DrawingWidget.h"
#include "project/PlainText.h"
#include "project/ProjectFileDialogs.h"
#include "widgets/QtTexts.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace quarnel {

namespace {

constexpr std::size_t NoId = static_cast<std::size_t>(-1);

/// The local files and folders that are dragged.
std::vector<std::string> DraggedPaths(const QMimeData& mime) {
    std::vector<std::string> paths;
    // An open question comes first.
    if (QApplication::activeModalWidget() != nullptr)
        return paths;
    const QList<QUrl> urls = mime.urls();
    for (const QUrl& url : urls)
        if (url.isLocalFile())
            paths.push_back(ToUtf8(url.toLocalFile()));
    return paths;
}

} // namespace

// ---- Reading ------------------------------------------------------------------------------------

void CompareProjectsFrm::Add(const std::vector<std::string>& paths) {
    Work work;
    for (const std::string& path : paths) {
        if (QFileInfo(ToQString(path)).isDir())
            std::ranges::copy(ProjectsIn(path), std::back_inserter(work.files));
        else
            work.files.push_back(path);
    }
    for (std::size_t i = 0; i < work.files.size(); ++i)
        work.ids.push_back(nextId_++);
    if (work.files.empty())
        return;
    waiting_.push_back(std::move(work));
    StartNext();
}

void CompareProjectsFrm::ChooseProjects() {
    const QStringList chosen = ChooseProjectsToOpen(this, QStringLiteral("Add Projects"));
    if (chosen.isEmpty())
        return;
    RememberFolderOf(chosen.constFirst());
    std::vector<std::string> paths;
    for (const QString& path : chosen)
        paths.push_back(ToUtf8(path));
    SortNaturally(paths);
    Add(paths);
}

void CompareProjectsFrm::StartNext() {
    if (!reading_.IsRunning() && !waiting_.empty()) {
        current_ = std::move(waiting_.front());
        waiting_.pop_front();
        done_ = 0;
        reading_.Start(current_.files);
    }
    ShowProgress();
}

void CompareProjectsFrm::TakeRows() {
    std::vector<std::pair<std::size_t, CompareRow>> came = reading_.TakeRows();
    if (came.empty())
        return;
    const bool areFirst = model_->rowCount() == 0;
    ChangeRows(
        [&](std::vector<CompareRow>& rows, std::vector<std::size_t>& ids) {
            std::unordered_map<std::size_t, std::size_t> places;
            for (std::size_t place = 0; place < ids.size(); ++place)
                places.emplace(ids[place], place);
            for (auto& [index, row] : came) {
                const std::size_t id = current_.ids[index];
                if (const auto found = places.find(id); found != places.end()) {
                    rows[found->second] = std::move(row);
                } else if (!current_.areReadAgain) { // else its row was removed meanwhile
                    ids.push_back(id);
                    rows.push_back(std::move(row));
                }
            }
        },
        ChosenIds(), CurrentId());
    done_ = came.back().first + 1;
    if (areFirst)
        grid_->FitColumns();
    ShowProgress();
}

/// What of the run and behind it has not been read.
std::deque<CompareProjectsFrm::Work> CompareProjectsFrm::Unread() {
    std::deque<Work> unread;
    if (done_ < current_.files.size() && !current_.areReadAgain) {
        const auto done = static_cast<std::ptrdiff_t>(done_);
        unread.push_back({{current_.files.begin() + done, current_.files.end()},
                          {current_.ids.begin() + done, current_.ids.end()}});
    }
    for (Work& work : waiting_)
        if (!work.areReadAgain)
            unread.push_back(std::move(work));
    return unread;
}

void CompareProjectsFrm::EndRun() {
    TakeRows();
    if (std::exchange(isReadAgainAsked_, false)) {
        std::deque<Work> unread = Unread();
        waiting_ = std::move(unread);
        waiting_.push_front(AllRowsAgain());
    }
    current_ = Work();
    done_ = 0;
    StartNext();
    if (!reading_.IsRunning())
        grid_->FitColumns();
}

CompareProjectsFrm::Work CompareProjectsFrm::AllRowsAgain() const {
    Work work;
    work.areReadAgain = true;
    work.ids = model_->Ids();
    for (const CompareRow& row : model_->Rows())
        work.files.push_back(row.file);
    return work;
}

void CompareProjectsFrm::ReadAgain() {
    if (reading_.IsRunning()) {
        isReadAgainAsked_ = true;
        reading_.Cancel();
        return;
    }
    waiting_.push_back(AllRowsAgain());
    StartNext();
}

void CompareProjectsFrm::CancelReading() {
    isReadAgainAsked_ = false;
    waiting_.clear();
    reading_.Cancel();
}

void CompareProjectsFrm::ShowProgress() {
    const bool isReading = reading_.IsRunning();
    // A button that goes must not take the keyboard with it.
    if (!isReading && progress_->isAncestorOf(focusWidget()))
        grid_->setFocus();
    progress_->setVisible(isReading);
    std::size_t all = current_.files.size();
    for (const Work& work : waiting_)
        all += work.files.size();
    bar_->setMaximum(static_cast<int>(all));
    bar_->setValue(static_cast<int>(done_));
}

// ---- Rows ---------------------------------------------------------------------------------------

std::vector<std::size_t> CompareProjectsFrm::ChosenPlaces() const {
    std::vector<std::size_t> places;
    const QModelIndexList chosen = grid_->selectionModel()->selectedRows();
    for (const QModelIndex& index : chosen)
        places.push_back(model_->PlaceOf(index.row()));
    std::sort(places.begin(), places.end());
    return places;
}

std::vector<std::size_t> CompareProjectsFrm::ChosenIds() const {
    std::vector<std::size_t> ids;
    for (const std::size_t place : ChosenPlaces())
        ids.push_back(model_->Ids()[place]);
    return ids;
}

std::size_t CompareProjectsFrm::CurrentId() const {
    const QModelIndex current = grid_->currentIndex();
    return current.isValid() ? model_->Ids()[model_->PlaceOf(current.row())] : NoId;
}

/// Changes the rows; those of `chosenIds` are chosen behind it.
void CompareProjectsFrm::ChangeRows(const CompareTableModel::RowChange& change,
                                    const std::vector<std::size_t>& chosenIds,
                                    std::size_t currentId) {
    const int column = std::max(0, grid_->currentIndex().column());
    model_->ChangeRows(change);
    const std::unordered_set<std::size_t> wanted(chosenIds.begin(), chosenIds.end());
    QItemSelection chosen;
    QModelIndex current;
    for (int row = 0; row < model_->rowCount(); ++row) {
        const std::size_t id = model_->Ids()[model_->PlaceOf(row)];
        const QModelIndex index = model_->index(row, column);
        if (id == currentId)
            current = index;
        if (wanted.contains(id))
            chosen.select(index, index);
    }
    QItemSelectionModel& selection = *grid_->selectionModel();
    selection.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    selection.select(chosen, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    ShowComparison();
}

void CompareProjectsFrm::RemoveChosen() {
    const std::vector<std::size_t> chosen = ChosenPlaces();
    // The row behind the first of them is looked at next, but not chosen: a second press must not
    // remove what nobody chose.
    std::size_t next = NoId;
    for (std::size_t place = 0; place < model_->Ids().size(); ++place)
        if (!std::ranges::binary_search(chosen, place) &&
            (next == NoId || place <= chosen.back() + 1))
            next = model_->Ids()[place];
    ChangeRows(
        [&chosen](std::vector<CompareRow>& rows, std::vector<std::size_t>& ids) {
            for (auto place = chosen.rbegin(); place != chosen.rend(); ++place) {
                rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(*place));
                ids.erase(ids.begin() + static_cast<std::ptrdiff_t>(*place));
            }
        },
        {}, next);
}

void CompareProjectsFrm::MoveChosenUp() {
    MoveChosen(-1);
}

void CompareProjectsFrm::MoveChosenDown() {
    MoveChosen(1);
}

/// Moves each chosen row by one place; those at the end of the table, and behind each other there,
/// stay.
void CompareProjectsFrm::MoveChosen(int by) {
    std::vector<std::size_t> places = ChosenPlaces();
    if (by > 0)
        std::reverse(places.begin(), places.end());
    ChangeRows(
        [&places, by](std::vector<CompareRow>& rows, std::vector<std::size_t>& ids) {
            std::size_t end = by > 0 ? rows.size() - 1 : 0; // where no row can move on
            for (const std::size_t place : places) {
                if (place == end) {
                    end -= static_cast<std::size_t>(by);
                    continue;
                }
                const std::size_t to = place + static_cast<std::size_t>(by);
                std::swap(rows[place], rows[to]);
                std::swap(ids[place], ids[to]);
            }
        },
        ChosenIds(), CurrentId());
}

void CompareProjectsFrm::OpenRow(const QModelIndex& index) {
    Q_EMIT OpenRequested(model_->Rows()[model_->PlaceOf(index.row())].file);
}

void CompareProjectsFrm::ChooseUnit() {
    CompareSettings settings = model_->Settings();
    settings.unit = CompareUnit{lengthUnit_->currentIndex(), timeUnit_->currentIndex()};
    model_->ShowSettings(settings);
    ShowComparison();
    grid_->FitColumns();
}

void CompareProjectsFrm::ChooseGroup() {
    CompareSettings settings = model_->Settings();
    settings.grouping = static_cast<Grouping>(group_->currentIndex());
    model_->ShowSettings(settings);
    ShowComparison();
}

// ---- What is shown ------------------------------------------------------------------------------

void CompareProjectsFrm::ShowComparison() {
    lengthUnit_->setCurrentIndex(model_->Compared().unit.length);
    timeUnit_->setCurrentIndex(model_->Compared().unit.time);
    ShowOpenProject();
    ShowChoice();
}

void CompareProjectsFrm::ShowChoice() {
    const bool hasRows = model_->rowCount() > 0;
    for (QPushButton* button : tableButtons_)
        button->setEnabled(hasRows);
    for (QPushButton* button : choiceButtons_)
        button->setEnabled(grid_->selectionModel()->hasSelection());
    const std::optional<std::size_t> group = ChosenGroup();
    ShowStatistics(group);
    ShowPlot(group);
}

/// The group of the first chosen row in the order of testing.
std::optional<std::size_t> CompareProjectsFrm::ChosenGroup() const {
    const std::vector<std::size_t> places = ChosenPlaces();
    return places.empty() ? std::nullopt : model_->Compared().rows[places.front()].group;
}

void CompareProjectsFrm::ShowStatistics(std::optional<std::size_t> group) {
    const std::vector<CompareLine> lines = model_->rowCount() == 0 ? std::vector<CompareLine>()
                                           : group ? CompareLines(model_->Compared(), *group)
                                                   : CompareLines(model_->Compared());
    QString text;
    std::optional<std::size_t> before;
    for (const CompareLine& line : lines) {
        // What belongs together stands together.
        if (!text.isEmpty())
            text += line.group == before ? QStringLiteral("\n") : QStringLiteral("\n\n");
        text += ToQString(PlainText(line.text));
        before = line.group;
    }
    // Setting it anew would lose what is selected in it.
    if (text != statistics_->toPlainText())
        statistics_->setPlainText(text);
}

/// The counted tests of the group, or of several chosen rows, or of a chosen row in a group too
/// large for one picture, these.
std::vector<std::size_t> CompareProjectsFrm::PlottedTests(std::optional<std::size_t> group) const {
    const Comparison& comparison = model_->Compared();
    const std::vector<std::size_t> places = ChosenPlaces();
    if (group && places.size() == 1 &&
        comparison.groups[*group].counted.size() <= MostNormalizedCurves)
        return comparison.groups[*group].counted;
    if (places.empty())
        return comparison.groups.empty() ? std::vector<std::size_t>()
                                         : comparison.groups.front().counted;
    std::vector<std::size_t> tests;
    std::ranges::copy_if(places, std::back_inserter(tests), [&comparison](std::size_t place) {
        return comparison.rows[place].status == CompareStatus::Counted;
    });
    return tests;
}

void CompareProjectsFrm::ShowPlot(std::optional<std::size_t> group) {
    const std::vector<std::size_t> tests = PlottedTests(group);
    const std::vector<CompareGroup>& groups = model_->Compared().groups;
    QString caption = QStringLiteral("Normali&zed plot");
    if (!groups.empty())
        caption += QStringLiteral(" of ") + ToQString(PlainText(groups[group.value_or(0)].name))
                                                .replace(QLatin1Char('&'), QStringLiteral("&&"));
    plotCaption_->setText(caption + QLatin1Char(':'));
    plot_->setAccessibleDescription(
        QStringLiteral("%1 tests").arg(std::min(tests.size(), MostNormalizedCurves)));
    if (tests.empty()) {
        plot_->Show({}, model_->rowCount() == 0 ? QString() : ToQString(NoTestCountedText));
        return;
    }
    plot_->Show(
        [this, tests, byTimeLag = timeLag_->isChecked()](double width, double height) {
            return DrawNormalized(NormalizedCurves(model_->Rows(), tests), byTimeLag, width,
                                  height);
        },
        QString());
}

void CompareProjectsFrm::ShowOpenProject() {
    model_->ShowOpenProject(analysis_.file.CurrentProjectFile, hasUnsavedChanges_());
}

// ---- Events -------------------------------------------------------------------------------------

void CompareProjectsFrm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    ShowOpenProject();
    openProjectLook_->start();
}

void CompareProjectsFrm::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    // A window that is only put into the task bar goes on reading.
    if (event->spontaneous())
        return;
    openProjectLook_->stop();
    CancelReading();
}

void CompareProjectsFrm::dragEnterEvent(QDragEnterEvent* event) {
    if (DraggedPaths(*event->mimeData()).empty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void CompareProjectsFrm::dropEvent(QDropEvent* event) {
    std::vector<std::string> paths = DraggedPaths(*event->mimeData());
    event->setDropAction(Qt::CopyAction);
    event->accept();
    SortNaturally(paths);
    Add(paths);
}

} // namespace quarnel
