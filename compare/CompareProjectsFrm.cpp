#include "compare/CompareProjectsFrm.h"

#include "compare/CompareGrid.h"
#include "compare/CompareTableModel.h"
#include "compare/NormalizedDrawing.h"
#include "compare/ProjectPaths.h"
#include "output/DrawingWidget.h"
#include "project/PlainText.h"
#include "widgets/QtTexts.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace quarnel {

namespace {

/// More wells than these are counted in the caption of the plot, not named.
constexpr std::size_t MostNamedGroups = 3;

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
    const std::vector<std::size_t> groups = ChosenGroups();
    ShowStatistics(groups);
    ShowPlot(groups);
}

std::vector<std::size_t> CompareProjectsFrm::ChosenGroups() const {
    std::vector<std::size_t> groups;
    std::unordered_set<std::size_t> known;
    for (const std::size_t place : ChosenPlaces())
        if (const auto group = model_->Compared().rows[place].group;
            group && known.insert(*group).second)
            groups.push_back(*group);
    return groups;
}

void CompareProjectsFrm::ShowStatistics(const std::vector<std::size_t>& groups) {
    const std::vector<CompareLine> lines = groups.empty()
                                               ? CompareLines(model_->Compared())
                                               : CompareLines(model_->Compared(), groups);
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
std::vector<std::size_t>
CompareProjectsFrm::PlottedTests(const std::vector<std::size_t>& groups) const {
    const Comparison& comparison = model_->Compared();
    const std::vector<std::size_t> places = ChosenPlaces();
    if (!groups.empty() && places.size() == 1 &&
        comparison.groups[groups.front()].counted.size() <= MostNormalizedCurves)
        return comparison.groups[groups.front()].counted;
    if (places.empty())
        return comparison.groups.empty() ? std::vector<std::size_t>()
                                         : comparison.groups.front().counted;
    std::vector<std::size_t> tests;
    std::ranges::copy_if(places, std::back_inserter(tests), [&comparison](std::size_t place) {
        return comparison.rows[place].status == CompareStatus::Counted;
    });
    return tests;
}

/// Names the groups that the picture is of, or how many they are.
QString CompareProjectsFrm::PlotCaption(const std::vector<std::size_t>& groups) const {
    QStringList names;
    for (const std::size_t group : groups)
        names.append(ToQString(PlainText(model_->Compared().groups[group].name)));
    QString caption = QStringLiteral("Normalized plot");
    if (groups.size() > MostNamedGroups)
        caption += QStringLiteral(" of %1 groups").arg(groups.size());
    else if (!groups.empty())
        caption += QStringLiteral(" of ") + names.join(QStringLiteral(", "));
    return caption + QLatin1Char(':');
}

void CompareProjectsFrm::ShowPlot(const std::vector<std::size_t>& groups) {
    const std::vector<std::size_t> tests = PlottedTests(groups);
    const bool isOfFirst = ChosenPlaces().empty() && !model_->Compared().groups.empty();
    QString caption = PlotCaption(isOfFirst ? std::vector<std::size_t>{0} : groups);
    plotCaption_->setToolTip(caption);
    plotCaption_->setText(
        caption.replace(QLatin1Char('&'), QStringLiteral("&&"))
            .replace(QStringLiteral("Normalized"), QStringLiteral("Normali&zed")));
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
