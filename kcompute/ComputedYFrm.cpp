#include "kcompute/ComputedYFrm.h"

#include "kcompute/FittedYModel.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTableView>

namespace quarnel {

namespace {

/// Widest texts of the grid's columns.
constexpr std::array<const char*, FittedYModel::Columns> WidestTexts = {
    "1000000", "100000.00", "-1.234567E-05", "-1.23e-10"};
constexpr int TextColumns = 76;
constexpr int TextLines = 34;
/// What the grid leaves of the text on a small screen.
constexpr int LeastColumns = 24;

} // namespace

ComputedYFrm::ComputedYFrm(Analysis& analysis, QWidget* parent)
    : QDialog(parent)
    , analysis_(analysis) {
    setObjectName(QStringLiteral("ComputedYFrm"));
    setWindowTitle(QStringLiteral("Computation Details"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);

    SummaryText = new QPlainTextEdit(this);
    SummaryText->setObjectName(QStringLiteral("SummaryText"));
    SummaryText->setAccessibleName(tr("Account of the computation"));
    SummaryText->setReadOnly(true);
    SummaryText->setUndoRedoEnabled(false);
    SummaryText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    SummaryText->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    // Who reads the window in a large font reads this text in it too.
    fixed.setPointSizeF(std::max(fixed.pointSizeF(), font().pointSizeF()));
    SummaryText->setFont(fixed);
    BuildGrid();

    auto* close = new QPushButton(tr("Close"), this);
    close->setObjectName(QStringLiteral("CmdClose"));
    connect(close, &QPushButton::clicked, this, &QDialog::hide);

    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(SummaryText);
    splitter->addWidget(ComputeYGrid);
    splitter->setStretchFactor(0, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addLayout(buttons);
    FitToTexts();
}

/// Columns and window as wide as their texts in the font at hand, within the screen.
void ComputedYFrm::FitToTexts() {
    const QFontMetrics gridMetrics(ComputeYGrid->font());
    const int margin = gridMetrics.horizontalAdvance(QLatin1String("00"));
    int gridWidth = 2 * ComputeYGrid->frameWidth() +
                    ComputeYGrid->style()->pixelMetric(QStyle::PM_ScrollBarExtent) + margin;
    for (int column = 0; column < FittedYModel::Columns; ++column) {
        const int text = gridMetrics.horizontalAdvance(
            QLatin1String(WidestTexts[static_cast<std::size_t>(column)]));
        const int heading = ComputeYGrid->horizontalHeader()->sectionSizeHint(column);
        ComputeYGrid->setColumnWidth(column, std::max(text, heading) + margin);
        gridWidth += ComputeYGrid->columnWidth(column);
    }
    ComputeYGrid->verticalHeader()->setMinimumSectionSize(0);
    ComputeYGrid->verticalHeader()->setDefaultSectionSize(gridMetrics.height() + 4);
    const QFontMetrics textMetrics(SummaryText->font());
    const int textWidth = textMetrics.horizontalAdvance(QLatin1Char('0')) * TextColumns;
    SummaryText->setMinimumWidth(textMetrics.horizontalAdvance(QLatin1Char('0')) * LeastColumns);
    const QSize wanted(textWidth + gridWidth + 4 * margin, textMetrics.lineSpacing() * TextLines);
    preferredSize_ = wanted.boundedTo(screen()->availableSize() * 9 / 10);
    qobject_cast<QSplitter*>(ComputeYGrid->parentWidget())->setSizes({textWidth, gridWidth});
}

void ComputedYFrm::BuildGrid() {
    model_ = new FittedYModel(analysis_, this);
    ComputeYGrid = new QTableView(this);
    ComputeYGrid->setObjectName(QStringLiteral("ComputeYGrid"));
    ComputeYGrid->setAccessibleName(tr("Fitted Y of each point"));
    ComputeYGrid->setModel(model_);
    ComputeYGrid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ComputeYGrid->setSelectionMode(QAbstractItemView::ContiguousSelection);
    ComputeYGrid->setTabKeyNavigation(false);
    ComputeYGrid->setWordWrap(false);
    ComputeYGrid->verticalHeader()->hide();
    ComputeYGrid->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    ComputeYGrid->horizontalHeader()->setSectionsClickable(false);
    ComputeYGrid->horizontalHeader()->setHighlightSections(false);
}

void ComputedYFrm::ShowState() {
    gridIsCleared_ = false;
    FillWhileShown();
}

void ComputedYFrm::ClearGrid() {
    gridIsCleared_ = true;
    model_->Empty();
}

void ComputedYFrm::ShowHeadings() {
    model_->ShowHeadings();
}

void ComputedYFrm::FillWhileShown() {
    if (!isVisible())
        return;
    const BusyPointer busy;
    SummaryText->setPlainText(ToQString(quarnel::SummaryText(analysis_.details)));
    if (gridIsCleared_)
        model_->Empty();
    else
        model_->Fill();
}

void ComputedYFrm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    FillWhileShown();
}

void ComputedYFrm::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    SummaryText->clear();
    model_->Empty();
}

} // namespace quarnel
