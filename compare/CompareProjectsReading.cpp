// How the window "Compare Projects" comes to its rows: files are added and read, while it goes on.

#include "compare/CompareGrid.h"
#include "compare/CompareProjectsFrm.h"
#include "compare/ProjectPaths.h"
#include "project/ProjectFileDialogs.h"
#include "widgets/QtTexts.h"

#include <QFileInfo>
#include <QProgressBar>
#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace quarnel {

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

} // namespace quarnel
