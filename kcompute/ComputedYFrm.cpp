#include "kcompute/ComputedYFrm.h"

#include "kcompute/ComputationDetails.h"
#include "project/FixedLists.h"
#include "recovery/RecoveryDa.h"
#include "recovery/RecoveryData.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"
#include "widgets/ScreenFit.h"
#include "widgets/StaleLabel.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnel {

namespace {

/// The text is never opened smaller than this.
constexpr int TextColumns = 60;
constexpr int TextLines = 34;
/// So many points tell how wide and tall the table of points is; no screen holds more lines.
constexpr std::size_t MeasuredPoints = 200;
/// What the grid leaves of the text on a small screen.
constexpr int LeastColumns = 24;

QString WithUnit(const char* name, std::string_view unit) {
    return QLatin1String(name) + QLatin1String(" (") + ToQString(unit) + QLatin1Char(')');
}

/// The units of the computation shown, or before one those that the lists say.
std::string_view TimeUnitOf(const ProjectState& state, const Computation* shown) {
    return NameAt(TimeUnitNames,
                  shown != nullptr ? shown->recovery.timeUnit : state.RecDatTimeUnitsDDL);
}
std::string_view LevelUnitOf(const ProjectState& state, const Computation* shown) {
    return NameAt(LengthUnitNames,
                  shown != nullptr ? shown->recovery.levelUnit : state.RecDatWaterLevelUnitsDDL);
}

/// Sample number, time as entered, Y and fitted Y of every point.
std::vector<TableColumn> FittedYColumns(const ProjectState& state, const ComputationPtr& shown) {
    const auto level = [&state, &shown](const char* name) {
        return [&state, &shown, name] { return WithUnit(name, LevelUnitOf(state, shown.get())); };
    };
    const auto point = [&shown](std::size_t row) -> const RecoveryPoint& {
        return (*shown->recovery.RecoveryPoints)[row];
    };
    return {{[] { return ToHeading(SampleHeading()); },
             [](std::size_t row) { return QString::number(row + 1); }, true},
            {[&state, &shown] { return WithUnit("Time", TimeUnitOf(state, shown.get())); },
             [point](std::size_t row) { return ToQString(point(row).timeText); }},
            {level("Y"), [point](std::size_t row) { return ToQString(YText(point(row))); }},
            {level("Fit Y"),
             [&shown](std::size_t row) { return ToQString(FittedYText(*shown, row)); }}};
}

} // namespace

ComputedYFrm::ComputedYFrm(const ProjectState& state, const ComputationPtr& computation,
                           QWidget* parent)
    : QDialog(parent)
    , state_(state)
    , computation_(computation)
    , model_(FittedYColumns(state, shown_)) {
    setObjectName(QStringLiteral("ComputedYFrm"));
    setWindowTitle(QStringLiteral("Computation Details"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);

    SummaryText = new QPlainTextEdit(this);
    SummaryText->setObjectName(QStringLiteral("SummaryText"));
    SummaryText->setAccessibleName(QStringLiteral("Account of the computation"));
    SummaryText->setReadOnly(true);
    SummaryText->setPlaceholderText(QStringLiteral("Press Compute K/ Plot"));
    SummaryText->setUndoRedoEnabled(false);
    SummaryText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    SummaryText->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    // Who reads the window in a large font reads this text in it too.
    fixed.setPointSizeF(std::max(fixed.pointSizeF(), font().pointSizeF()));
    SummaryText->setFont(fixed);
    BuildGrid();

    auto* close = new QPushButton(QStringLiteral("Close"), this);
    close->setObjectName(QStringLiteral("CmdClose"));
    connect(close, &QPushButton::clicked, this, &QDialog::hide);

    SummaryText->setMinimumWidth(QFontMetrics(fixed).horizontalAdvance(QLatin1Char('0')) *
                                 LeastColumns);
    splitter_ = new QSplitter(Qt::Horizontal, this);
    splitter_->setChildrenCollapsible(false);
    splitter_->addWidget(SummaryText);
    splitter_->addWidget(ComputeYGrid);
    splitter_->setStretchFactor(0, 1);
    splitter_->setStretchFactor(1, 0);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(close);
    stale_ = new StaleLabel(QStringLiteral("DetailsStaleText"), ToQString(NotCurrentMessage), this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(stale_);
    layout->addWidget(splitter_, 1);
    layout->addLayout(buttons);
}

/// What the text needs so that none of its lines wraps and as many are seen as a screen holds.
QSize ComputedYFrm::TextSize() const {
    const QFontMetrics metrics(SummaryText->font());
    const QString text =
        ToQString(quarnel::SummaryText(state_, computation_.get(), MeasuredPoints));
    const QStringList lines = text.split(QStringLiteral("\r\n"));
    int width = metrics.horizontalAdvance(QLatin1Char('0')) * TextColumns;
    for (const QString& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    const int height = std::max(TextLines, static_cast<int>(lines.size())) * metrics.lineSpacing();
    const int around =
        2 * (SummaryText->frameWidth() + qCeil(SummaryText->document()->documentMargin()));
    return {width + around + SummaryText->verticalScrollBar()->sizeHint().width(), height + around};
}

QSize ComputedYFrm::sizeHint() const {
    const QSize room = ScreenRoom(*this).size();
    if (splitter_->orientation() == Qt::Vertical)
        return room;
    const QSize least = SummaryText->minimumSizeHint().expandedTo(SummaryText->minimumSize());
    return (layout()->totalMinimumSize() - least + TextSize()).boundedTo(room);
}

/// Text and grid beside each other, or where the screen is too narrow for both one below the other.
void ComputedYFrm::Arrange() {
    const QMargins margins = layout()->contentsMargins();
    const int both = SummaryText->minimumWidth() + splitter_->handleWidth() +
                     ComputeYGrid->minimumWidth() + margins.left() + margins.right();
    splitter_->setOrientation(both > ScreenRoom(*this).width() ? Qt::Vertical : Qt::Horizontal);
    layout()->activate();
}

/// Where it stands, larger if the lines there are now need it.
void ComputedYFrm::Grow() {
    Arrange();
    const QRect room = ScreenRoom(*this);
    QRect wanted(QPoint(), size().expandedTo(sizeHint()).boundedTo(room.size()));
    wanted.moveCenter(geometry().center());
    wanted.moveTo(
        std::max(room.left(), std::min(wanted.left(), room.right() + 1 - wanted.width())),
        std::max(room.top(), std::min(wanted.top(), room.bottom() + 1 - wanted.height())));
    setGeometry(wanted);
    const bool areStacked = splitter_->orientation() == Qt::Vertical;
    const int all = areStacked ? wanted.height() : wanted.width();
    const int grid = areStacked ? all / 3 : ComputeYGrid->minimumWidth();
    splitter_->setSizes({all - grid, grid});
}

void ComputedYFrm::BuildGrid() {
    ComputeYGrid = new GridView(this);
    ComputeYGrid->setObjectName(QStringLiteral("ComputeYGrid"));
    ComputeYGrid->setAccessibleName(QStringLiteral("Fitted Y of each point"));
    ComputeYGrid->setModel(&model_);
    ComputeYGrid->SetWidestTexts({QString(), QStringLiteral("100000.00"),
                                  QStringLiteral("-1.234567E-05"), QStringLiteral("-1.23e-10")});
}

void ComputedYFrm::ShowState() {
    FillWhileShown();
}

void ComputedYFrm::ShowStale(bool stale) {
    stale_->ShowStale(stale);
}

void ComputedYFrm::ShowRowsOf(ComputationPtr computation) {
    const std::size_t rows = computation ? computation->recovery.RecoveryPoints->size() : 0;
    model_.ShowRows(rows, [this, &computation] { shown_ = std::move(computation); });
    model_.ShowHeadings();
}

void ComputedYFrm::FillWhileShown() {
    if (!isVisible())
        return;
    const BusyPointer busy;
    SummaryText->setPlainText(ToQString(quarnel::SummaryText(state_, computation_.get())));
    ShowRowsOf(computation_);
}

void ComputedYFrm::showEvent(QShowEvent* event) {
    Grow();
    QDialog::showEvent(event);
    FillWhileShown();
}

void ComputedYFrm::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    SummaryText->clear();
    ShowRowsOf(nullptr);
}

} // namespace quarnel
