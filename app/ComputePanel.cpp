#include "app/ComputePanel.h"

#include "kcompute/Computation.h"
#include "kcompute/ComputeK.h"
#include "kcompute/KLabel.h"
#include "kcompute/KText.h"
#include "kcompute/UseIgnoreGrid.h"
#include "output/PlotWidget.h"
#include "project/FixedLists.h"
#include "project/Result.h"
#include "widgets/ChoiceList.h"
#include "widgets/Colours.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"
#include "widgets/ReflowLayout.h"
#include "widgets/StaleLabel.h"

#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace quarnel {

namespace {

/// Of spare width the plot takes so many parts, the grid beside it one.
constexpr int PlotStretch = 3;

/// What "Compute K/ Plot" has done. K itself is said by its label alone, in its units of the
/// moment.
QString ComputedText(const Analysis& analysis) {
    if (!analysis.computation)
        return QStringLiteral("K was not computed");
    return QStringLiteral("Computed K from %1 of %2 points")
        .arg(analysis.computation->usedCount)
        .arg(analysis.computation->recovery.RecoveryPoints->size());
}

} // namespace

ComputePanel::ComputePanel(Analysis& analysis, QWidget* parent)
    : Panel(parent)
    , analysis_(analysis)
    , marks_(analysis.state, analysis.working) {
    StaleText = new StaleLabel(QStringLiteral("StaleText"), ToQString(NotCurrentMessage), this);
    auto* layout = new ReflowLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    Plot1 = new PlotWidget(analysis_.file, this);
    connect(Plot1, &PlotWidget::Told, this, &ComputePanel::Told);
    enum Part : std::size_t { PlotPart, MarksPart, StalePart, CommandsPart };
    layout->Add(Plot1, PlotStretch);
    layout->Add(BuildMarkSide(), 1);
    layout->Add(StaleText, 1);
    layout->Add(BuildCommands(), 1);
    // On a narrow page K stands right below the plot, so that both are seen at once.
    layout->Arrange({{{PlotPart, MarksPart}, {StalePart}, {CommandsPart}},
                     {{PlotPart}, {CommandsPart}, {StalePart}, {MarksPart}}});
    Plot1->FollowGrid(*RecDatWeightGrid);
    SetFirstControl(RecDatWeightGrid);
    // Keys of the window work while this page is seen, wherever the keyboard is.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(Qt::CTRL | key, this), &QShortcut::activated, this,
                &ComputePanel::Compute);
    SetTabOrder();
    MakeGrey();
    ShowState();
}

/// As the page is read: the plot, the marks, then the commands with the units of K among them; on a
/// narrow page the marks stand last.
void ComputePanel::SetTabOrder() {
    std::array<QWidget*, 9> read = {Plot1,          RecDatWeightGrid, CmdComputeK,
                                    ComputedKLabel, CmboKLengthUnits, CmboKTimeUnits,
                                    CmdDetails,     CmdPrintPlot,     CmdPrtSummary};
    const auto marks = read.begin() + 1;
    if (RecDatWeightGrid->y() > CmdComputeK->mapTo(this, QPoint()).y())
        std::rotate(marks, marks + 1, read.end());
    for (std::size_t i = 1; i < read.size(); ++i)
        setTabOrder(read[i - 1], read[i]);
}

QBoxLayout* ComputePanel::BuildMarkSide() {
    auto* layout = new QVBoxLayout;
    RecDatWeightGrid = new UseIgnoreGrid(analysis_.state, analysis_.working, marks_, this);
    connect(RecDatWeightGrid, &UseIgnoreGrid::MarksChanged, this, &ComputePanel::Edited);
    const QString keys = QStringLiteral(
        "Select cells of the Criteria column, or points on the plot, then press U (capital) for "
        "Use, I (capital) for Ignore, or the space bar to turn them over.");
    RecDatWeightGrid->setToolTip(keys);
    layout->addWidget(RecDatWeightGrid, 1);
    auto* hint =
        new QLabel(QStringLiteral("Shift+U: Use   Shift+I: Ignore   Space: the other"), this);
    hint->setToolTip(keys);
    hint->setWordWrap(true);
    layout->addWidget(hint);
    return layout;
}

QPushButton* ComputePanel::AddCommand(const QString& name, const QString& text,
                                      const QString& toolTip) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    return button;
}

QBoxLayout* ComputePanel::BuildKDisplay() {
    auto* caption = new QLabel(QStringLiteral("&K ="), this);
    caption->setToolTip(QStringLiteral("Hydraulic conductivity"));
    ComputedKLabel = new KLabel(this);
    ComputedKLabel->setToolTip(QStringLiteral("Hydraulic conductivity K in the chosen units. "
                                              "Right click to copy it with its unit."));
    ComputedKLabel->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    ComputedKLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont bold = ComputedKLabel->font();
    bold.setBold(true);
    ComputedKLabel->setFont(bold);
    ComputedKLabel->setMargin(3);
    ComputedKLabel->setMinimumWidth(
        QFontMetrics(bold).horizontalAdvance(QLatin1String("-1.23e-10")));
    const QString tip = QStringLiteral("Unit in which K is shown; K is not computed again");
    CmboKLengthUnits = MakeChoiceList(QStringLiteral("CmboKLengthUnits"), LengthUnitNames, tip,
                                      QStringLiteral("Length unit of K"));
    CmboKTimeUnits = MakeChoiceList(QStringLiteral("CmboKTimeUnits"), TimeUnitNames, tip,
                                    QStringLiteral("Time unit of K"));
    connect(CmboKLengthUnits, &QComboBox::activated, this, &ComputePanel::ChooseKLength);
    connect(CmboKTimeUnits, &QComboBox::activated, this, &ComputePanel::ChooseKTime);

    // Alt+K leads to K itself, to be read and copied.
    caption->setBuddy(ComputedKLabel);
    auto* unit = new QLabel(QStringLiteral("&Unit"), this);
    unit->setBuddy(CmboKLengthUnits);
    unit->setAccessibleName(CmboKLengthUnits->accessibleName());
    auto* per = new QLabel(QStringLiteral("&/"), this);
    per->setBuddy(CmboKTimeUnits);
    per->setAccessibleName(CmboKTimeUnits->accessibleName());
    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(ComputedKLabel);
    row->addWidget(unit);
    row->addWidget(CmboKLengthUnits);
    row->addWidget(per);
    row->addWidget(CmboKTimeUnits);
    return row;
}

QLayout* ComputePanel::BuildCommands() {
    CmdComputeK = AddCommand(
        QStringLiteral("CmdComputeK"), QStringLiteral("&Compute K/ Plot"),
        QStringLiteral("Fit a line to the points marked Use, compute K and draw the plot "
                       "(Ctrl+Return)"));
    CmdDetails = AddCommand(
        QStringLiteral("CmdDetails"), QStringLiteral("&Details"),
        QStringLiteral("Show every quantity of the computation and the fitted Y values"));
    CmdPrintPlot = AddCommand(QStringLiteral("CmdPrintPlot"), QStringLiteral("&Print"),
                              QStringLiteral("Print the plot on one page"));
    CmdPrtSummary = AddCommand(QStringLiteral("CmdPrtSummary"), QStringLiteral("&Summary"),
                               QStringLiteral("Save or print the summary report"));
    connect(CmdComputeK, &QPushButton::clicked, this, &ComputePanel::Compute);
    connect(CmdDetails, &QPushButton::clicked, this, &ComputePanel::DetailsRequested);
    connect(CmdPrintPlot, &QPushButton::clicked, this, &ComputePanel::PrintPlotRequested);
    connect(CmdPrtSummary, &QPushButton::clicked, this, &ComputePanel::SummaryRequested);

    auto* groups = new ReflowLayout;
    const auto addGroup = [this, groups](const QString& title) {
        auto* group = new QGroupBox(title, this);
        groups->Add(group);
        auto* inner = new ReflowLayout(group);
        const int margin = style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing);
        inner->setContentsMargins(margin, margin / 2, margin, margin);
        return inner;
    };
    ReflowLayout* conductivity = addGroup(QStringLiteral("Hydraulic Conductivity"));
    conductivity->Add(CmdComputeK);
    conductivity->Add(BuildKDisplay());
    conductivity->Add(CmdDetails);
    addGroup(QStringLiteral("Graph"))->Add(CmdPrintPlot);
    addGroup(QStringLiteral("Print"))->Add(CmdPrtSummary);
    return groups;
}

void ComputePanel::ShowState() {
    CmboKLengthUnits->setCurrentIndex(analysis_.state.CmboKLengthUnits);
    CmboKTimeUnits->setCurrentIndex(analysis_.state.CmboKTimeUnits);
    ShowComputation();
    ShowPreparedData();
}

void ComputePanel::ShowPreparedData() {
    marks_.PointsWereMade();
    RecDatWeightGrid->Refill();
    ShowHeadings();
}

void ComputePanel::ShowHeadings() {
    RecDatWeightGrid->ShowHeadings();
}

void ComputePanel::ShowStale(bool stale) {
    StaleText->ShowStale(stale);
    ComputedKLabel->ShowStale(stale);
    Plot1->ShowStale(stale);
}

void ComputePanel::UseOnly(const std::vector<std::size_t>& points) {
    marks_.UseOnly(points);
    RecDatWeightGrid->ShowMarks();
    Q_EMIT Edited();
}

/// The grey of the desktop's placeholders is too pale for a number that someone may have to read.
void ComputePanel::MakeGrey() {
    QPalette greyed;
    greyed.setColor(QPalette::PlaceholderText, Dimmed(palette().color(QPalette::WindowText),
                                                      palette().color(QPalette::Window)));
    ComputedKLabel->setPalette(greyed);
}

void ComputePanel::changeEvent(QEvent* event) {
    Panel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        MakeGrey();
}

/// The page is arranged anew not only where its size changes: larger letters break its rows too.
/// The layout has done so by the time the event comes here.
bool ComputePanel::event(QEvent* event) {
    const bool done = Panel::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize ||
        event->type() == QEvent::Show)
        SetTabOrder();
    return done;
}

void ComputePanel::AddToPlotMenu(QAction* action) {
    Plot1->addAction(action);
}

void ComputePanel::ShowComputation() {
    Plot1->ShowComputation(analysis_.computation);
    ShowK();
}

void ComputePanel::Compute() {
    Result result;
    {
        const BusyPointer busy;
        result = quarnel::Compute(analysis_);
        RecDatWeightGrid->ShowMarks();
        ShowComputation();
        Q_EMIT ComputationChanged();
    }
    Q_EMIT Told(ComputedText(analysis_));
    if (result.IsError())
        ShowMessage(this, ToQString(result.message));
    else if (!analysis_.computation->line.Falls())
        ShowMessage(this, ToQString(RisingSlopeMessage), ToQString(RisingSlopeTitle));
}

void ComputePanel::ChooseKLength(int index) {
    const BusyPointer busy;
    analysis_.state.CmboKLengthUnits = index;
    ShowK();
    Q_EMIT ComputationChanged();
}

void ComputePanel::ChooseKTime(int index) {
    const BusyPointer busy;
    analysis_.state.CmboKTimeUnits = index;
    ShowK();
    Q_EMIT ComputationChanged();
}

void ComputePanel::ShowK() {
    const QString k = ToQString(ShowComputedK(analysis_.state, analysis_.computation.get()));
    const QString unit = ToQString(KUnitText(analysis_.state));
    ComputedKLabel->ShowK(k, unit);
    Plot1->ShowK(k.isEmpty() ? QString() : k + QLatin1Char(' ') + unit);
}

} // namespace quarnel
