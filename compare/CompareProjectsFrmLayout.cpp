#include "compare/CompareGrid.h"
#include "compare/CompareProjectsFrm.h"
#include "compare/CompareTableModel.h"
#include "compare/NormalizedDrawing.h"
#include "output/DrawingWidget.h"
#include "project/FixedLists.h"
#include "widgets/ChoiceList.h"
#include "widgets/CommandButton.h"
#include "widgets/PageScroll.h"
#include "widgets/QtTexts.h"
#include "widgets/ReflowLayout.h"
#include "widgets/SaidLine.h"
#include "widgets/ScreenFit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>
#include <array>

namespace quarnel {

namespace {

constexpr QSize FirstSize(960, 640);
/// What the first size holds at least where the font is large.
constexpr int FirstCharacters = 110;
constexpr int FirstLines = 32;
/// Least sizes in lines of text and characters.
constexpr int LeastGridLines = 6;
/// The texts of a picture have sizes of their own, whatever the font is. Beside the statistics it
/// fits a screen of 512 points.
constexpr QSize LeastPlotSize(270, 200);
constexpr int LeastStatisticsCharacters = 24;
/// How often the window looks whether the open project has changed, in ms.
constexpr int OpenProjectInterval = 500;
/// Rows that come within this time, in ms, are compared at once: comparing thousands anew for each
/// would take longer than reading them.
constexpr int TakeRowsInterval = 100;

constexpr std::array<std::string_view, 3> GroupEntries = {"By well", "By site and well", "None"};

/// Table, texts and plot take what room there is: the page scrolls only where their least sizes do
/// not fit, however large they would like to be.
class GivingSplitter : public QSplitter {
public:
    using QSplitter::QSplitter;
    QSize sizeHint() const override { return minimumSizeHint(); }
};

} // namespace

CompareProjectsFrm::CompareProjectsFrm(const Analysis& analysis,
                                       std::function<bool()> hasUnsavedChanges, QWidget* parent)
    : QDialog(parent)
    , analysis_(analysis)
    , hasUnsavedChanges_(std::move(hasUnsavedChanges)) {
    setObjectName(QStringLiteral("CompareProjectsFrm"));
    setWindowTitle(QStringLiteral("Compare Projects"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setAcceptDrops(true);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(new PageScroll(BuildContent()), 1);
    rows->addWidget(BuildProgress());
    rows->addLayout(BuildOutput());
    rows->addWidget(BuildSaid());
    takeRows_ = new QTimer(this);
    takeRows_->setSingleShot(true);
    takeRows_->setInterval(TakeRowsInterval);
    connect(takeRows_, &QTimer::timeout, this, &CompareProjectsFrm::TakeRows);
    connect(&reading_, &CompareReading::RowsCame, takeRows_, qOverload<>(&QTimer::start));
    connect(&reading_, &CompareReading::Ended, this, &CompareProjectsFrm::EndRun);
    openProjectLook_ = new QTimer(this);
    openProjectLook_->setInterval(OpenProjectInterval);
    connect(openProjectLook_, &QTimer::timeout, this, &CompareProjectsFrm::ShowOpenProject);
    const QSize forFont(fontMetrics().averageCharWidth() * FirstCharacters,
                        fontMetrics().lineSpacing() * FirstLines);
    resize(FirstSize.expandedTo(forFont));
    ShowComparison();
    ShowProgress();
}

CompareProjectsFrm::~CompareProjectsFrm() = default;

QWidget* CompareProjectsFrm::BuildContent() {
    auto* content = new QWidget;
    auto* rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addLayout(BuildCommands());
    rows->addLayout(BuildLists());
    auto* upper = new QWidget;
    upper->setLayout(BuildGrid());
    auto* lower = new GivingSplitter(Qt::Horizontal);
    lower->addWidget(BuildStatistics());
    lower->addWidget(BuildPlot());
    const int besideEachOther = statistics_->minimumWidth() * 3 / 2 + LeastPlotSize.width();
    if (besideEachOther > ScreenRoom(*this).width())
        lower->setOrientation(Qt::Vertical);
    lower->setStretchFactor(0, 2);
    lower->setStretchFactor(1, 3);
    auto* both = new GivingSplitter(Qt::Vertical);
    both->addWidget(upper);
    both->addWidget(lower);
    both->setStretchFactor(0, 2);
    both->setStretchFactor(1, 3);
    for (GivingSplitter* splitter : {lower, both})
        splitter->setChildrenCollapsible(false);
    rows->addWidget(both, 1);
    rows->addWidget(BuildTimeLag());
    return content;
}

QLayout* CompareProjectsFrm::BuildCommands() {
    auto* row = new ReflowLayout;
    AddCommandButton(
        row, this, QStringLiteral("CompareAdd"), QStringLiteral("&Add Projects..."),
        QStringLiteral("Add projects, as many as you like at once; files and folders can be "
                       "dropped on this window too"),
        &CompareProjectsFrm::ChooseProjects);
    choiceButtons_ = {
        AddCommandButton(row, this, QStringLiteral("CompareRemove"), QStringLiteral("&Remove"),
                         QStringLiteral("Take the chosen rows off the table; no file changes"),
                         &CompareProjectsFrm::RemoveChosen),
        AddCommandButton(row, this, QStringLiteral("CompareUp"), QStringLiteral("Move &Up"),
                         QStringLiteral("Move the chosen rows up in the order of testing"),
                         &CompareProjectsFrm::MoveChosenUp),
        AddCommandButton(row, this, QStringLiteral("CompareDown"), QStringLiteral("Move &Down"),
                         QStringLiteral("Move the chosen rows down in the order of testing"),
                         &CompareProjectsFrm::MoveChosenDown)};
    tableButtons_ = {
        AddCommandButton(row, this, QStringLiteral("CompareReload"), QStringLiteral("Read A&gain"),
                         QStringLiteral("Read all files again as they are on disk now"),
                         &CompareProjectsFrm::ReadAgain)};
    return row;
}

QComboBox* CompareProjectsFrm::AddList(QBoxLayout* row, const QString& caption, QComboBox* list) {
    auto* label = new QLabel(caption);
    label->setBuddy(list);
    row->addWidget(label);
    row->addWidget(list);
    return list;
}

QLayout* CompareProjectsFrm::BuildLists() {
    auto* row = new QHBoxLayout;
    const QString unitTip = QStringLiteral("The unit that all K are shown in");
    lengthUnit_ = AddList(row, QStringLiteral("Unit of &K:"),
                          MakeChoiceList(QStringLiteral("CompareLengthUnit"), LengthUnitNames,
                                         unitTip, QStringLiteral("Length unit of K")));
    timeUnit_ = AddList(row, QStringLiteral("p&er"),
                        MakeChoiceList(QStringLiteral("CompareTimeUnit"), TimeUnitNames, unitTip,
                                       QStringLiteral("Time unit of K")));
    group_ = AddList(row, QStringLiteral("Grou&p:"),
                     MakeChoiceList(QStringLiteral("CompareGroup"), GroupEntries,
                                    QStringLiteral("Which tests belong together"),
                                    QStringLiteral("Group")));
    connect(lengthUnit_, &QComboBox::activated, this, &CompareProjectsFrm::ChooseUnit);
    connect(timeUnit_, &QComboBox::activated, this, &CompareProjectsFrm::ChooseUnit);
    connect(group_, &QComboBox::activated, this, &CompareProjectsFrm::ChooseGroup);
    row->addStretch(1);
    return row;
}

QLayout* CompareProjectsFrm::BuildGrid() {
    model_ = new CompareTableModel(this);
    grid_ = new CompareGrid;
    grid_->setObjectName(QStringLiteral("CompareGrid"));
    grid_->setAccessibleName(QStringLiteral("Projects"));
    grid_->setToolTip(QStringLiteral("Enter or a double click opens a project; a heading sorts"));
    grid_->setModel(model_);
    grid_->SetEmptyText(QStringLiteral("Add the projects to compare, or drop them here."));
    grid_->setMinimumHeight(fontMetrics().lineSpacing() * LeastGridLines);
    connect(grid_, &CompareGrid::OpenRequested, this, &CompareProjectsFrm::OpenRow);
    connect(grid_, &CompareGrid::CopyRequested, this, &CompareProjectsFrm::CopyRows);
    connect(grid_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CompareProjectsFrm::ShowChoice);
    auto* caption = new QLabel(QStringLiteral("Pro&jects:"));
    caption->setBuddy(grid_);
    auto* rows = new QVBoxLayout;
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(caption);
    rows->addWidget(grid_, 1);
    return rows;
}

QWidget* CompareProjectsFrm::BuildStatistics() {
    statistics_ = new QPlainTextEdit;
    statistics_->setObjectName(QStringLiteral("CompareStatistics"));
    statistics_->setAccessibleName(QStringLiteral("Statistics and repeated tests"));
    statistics_->setReadOnly(true);
    statistics_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    statistics_->setTabChangesFocus(true);
    statistics_->setMinimumWidth(fontMetrics().averageCharWidth() * LeastStatisticsCharacters);
    auto* caption = new QLabel(QStringLiteral("Stat&istics and repeated tests:"));
    caption->setBuddy(statistics_);
    auto* side = new QWidget;
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(caption);
    rows->addWidget(statistics_, 1);
    return side;
}

QWidget* CompareProjectsFrm::BuildPlot() {
    plot_ = new DrawingWidget(analysis_.file);
    plot_->setObjectName(QStringLiteral("ComparePlot"));
    plot_->setAccessibleName(QStringLiteral("Normalized plot"));
    plot_->setToolTip(QStringLiteral(
        "Y/H0 (logarithmic) against time: used points are filled. Of a long test every point that "
        "differs on paper is drawn. Right click to copy the picture or to save it."));
    plot_->setMinimumSize(LeastPlotSize);
    connect(plot_, &DrawingWidget::Told, this, &CompareProjectsFrm::Tell);
    plotCaption_ = new QLabel;
    plotCaption_->setObjectName(QStringLiteral("ComparePlotCaption"));
    // The names of wells have no length that a window could be sure of.
    plotCaption_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    plotCaption_->setBuddy(plot_);
    auto* side = new QWidget;
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(plotCaption_);
    rows->addWidget(plot_, 1);
    return side;
}

/// Below both halves: with a large font it would make the plot's half too wide for a small window.
QCheckBox* CompareProjectsFrm::BuildTimeLag() {
    timeLag_ = new QCheckBox(
        ToQString(TimeLagText).replace(QStringLiteral("lag"), QStringLiteral("&lag")));
    timeLag_->setObjectName(QStringLiteral("CompareTimeLag"));
    timeLag_->setToolTip(
        QStringLiteral("T0 = -1/slope of the fitted line: where the model holds, the curves of one "
                       "well coincide. Only tests whose line falls."));
    connect(timeLag_, &QCheckBox::toggled, this, &CompareProjectsFrm::ShowChoice);
    return timeLag_;
}

QWidget* CompareProjectsFrm::BuildProgress() {
    progress_ = new QWidget;
    progress_->setObjectName(QStringLiteral("CompareProgress"));
    bar_ = new QProgressBar;
    bar_->setObjectName(QStringLiteral("CompareProgressBar"));
    bar_->setAccessibleName(QStringLiteral("Files read"));
    bar_->setFormat(QStringLiteral("%v of %m files read"));
    auto* row = new QHBoxLayout(progress_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(bar_, 1);
    AddCommandButton(row, this, QStringLiteral("CompareCancel"), QStringLiteral("Ca&ncel"),
                     QStringLiteral("Stop reading; the rows that have come stay"),
                     &CompareProjectsFrm::CancelReading);
    return progress_;
}

QLayout* CompareProjectsFrm::BuildOutput() {
    auto* row = new QHBoxLayout;
    tableButtons_.push_back(
        AddCommandButton(row, this, QStringLiteral("CompareCopy"), QStringLiteral("&Copy Table"),
                         QStringLiteral("Copy all rows as text, as spreadsheets take it"),
                         &CompareProjectsFrm::CopyTable));
    tableButtons_.push_back(
        AddCommandButton(row, this, QStringLiteral("CompareSave"), QStringLiteral("&Save As..."),
                         QStringLiteral("Save the table as CSV, or table, lines and plots as PDF"),
                         &CompareProjectsFrm::SaveTable));
    choiceButtons_.push_back(AddCommandButton(
        row, this, QStringLiteral("CompareRecord"), QStringLiteral("Record of the &Test..."),
        QStringLiteral("Write what defends a K later, for each chosen row"),
        &CompareProjectsFrm::WriteRecords));
    row->addStretch(1);
    AddCommandButton(row, this, QStringLiteral("CompareClose"), QStringLiteral("Cl&ose"), QString(),
                     &QDialog::reject);
    return row;
}

/// Its room stays when it says nothing, so that nothing moves when it speaks.
QWidget* CompareProjectsFrm::BuildSaid() {
    said_ = new SaidLine(QStringLiteral("CompareStatus"));
    said_->setMinimumHeight(fontMetrics().lineSpacing());
    return said_;
}

} // namespace quarnel
