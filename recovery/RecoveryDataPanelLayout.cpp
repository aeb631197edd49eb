#include "recovery/RecoveryDataPanel.h"

#include "project/FixedLists.h"
#include "project/ProjectState.h"
#include "recovery/GridEditing.h"
#include "recovery/InsertRowsPanel.h"
#include "recovery/RecDatCheckGrid.h"
#include "recovery/RecDatGrid.h"
#include "recovery/RecoveryDa.h"
#include "recovery/RecoveryData.h"
#include "recovery/RecoveryGridModel.h"
#include "widgets/ChoiceList.h"
#include "widgets/Panel.h"
#include "widgets/QtTexts.h"
#include "widgets/ReflowLayout.h"
#include "widgets/TextBox.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <span>
#include <string_view>

namespace quarnel {

namespace {

constexpr int PreSlugCharacters = 12;

/// A caption above its list.
QBoxLayout* Captioned(const QString& caption, QComboBox* list) {
    auto* label = new QLabel(caption);
    label->setBuddy(list);
    auto* rows = new QVBoxLayout;
    rows->addStretch(1);
    rows->addWidget(label);
    rows->addWidget(list);
    return rows;
}

} // namespace

RecoveryDataPanel::RecoveryDataPanel(ProjectState& state, RecoveryData& checked, QWidget* parent)
    : Panel(parent)
    , state_(state)
    , data_(checked)
    , model_(new RecoveryGridModel(state, this)) {
    QLayout* settings = BuildSettings();
    grid_ = new RecDatGrid(*model_);
    grid_->setToolTip(QStringLiteral(
        "One row for each reading: the time since the start of the test and the water level.\n"
        "Tab or Enter goes to the next cell. Readings can be pasted from a spreadsheet or a "
        "logger's program."));
    auto* columns = new ReflowLayout;
    columns->Add(grid_, 1);
    columns->Add(BuildCommands());
    columns->Add(BuildCheckColumn(), 1);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addLayout(settings);
    rows->addLayout(columns, 1);
    // Over the page and in no layout: nothing moves when it comes and goes.
    insertRows_ = new InsertRowsPanel(state, this);

    SetFirstControl(grid_);
    ConnectLists();
    connect(this, &RecoveryDataPanel::HeadingsChanged, this, &RecoveryDataPanel::Edited);
    connect(model_, &RecoveryGridModel::SettingsChanged, this, &RecoveryDataPanel::ShowSettings);
    connect(model_, &RecoveryGridModel::RowsEdited, this, &RecoveryDataPanel::ReadingsEdited);
    connect(model_, &QAbstractItemModel::dataChanged, this, &RecoveryDataPanel::Edited);
    connect(model_, &QAbstractItemModel::rowsInserted, this, &RecoveryDataPanel::Edited);
    connect(model_, &QAbstractItemModel::rowsRemoved, this, &RecoveryDataPanel::Edited);
    connect(model_, &QAbstractItemModel::modelReset, this, &RecoveryDataPanel::Edited);
    connect(insertRows_, &InsertRowsPanel::InsertRequested, this,
            [this](int count, InsertPlace place) {
                grid_->Editor().InsertRows(count, place);
                grid_->ShowSelection();
            });
    connect(insertRows_, &InsertRowsPanel::Closed, grid_, [this] { grid_->setFocus(); });
    connect(grid_, &RecDatGrid::Pasted, this, &RecoveryDataPanel::Pasted);
    connect(grid_, &RecDatGrid::TookBack, this, &RecoveryDataPanel::TookBack);
    connect(grid_, &RecDatGrid::FocusChanged, this, &RecoveryDataPanel::TakeTabStops);
    grid_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(grid_, &QWidget::customContextMenuRequested, this, &RecoveryDataPanel::ShowContextMenu);
}

QLayout* RecoveryDataPanel::BuildSettings() {
    RecDatDataTypeDDL = MakeChoiceList(
        QStringLiteral("RecDatDataTypeDDL"), DataTypeNames,
        QStringLiteral("What was measured in the well:\n"
                       "D, the depth from the measuring point down to the groundwater;\n"
                       "H, the groundwater head, a height above a datum;\n"
                       "Y, the change in head since before the test, as a distance."));
    RecDatSlugTestTypeDDL = MakeChoiceList(
        QStringLiteral("RecDatSlugTestTypeDDL"), SlugTestTypeNames,
        QStringLiteral("Rising head: water or a slug was taken out and the water level "
                       "rises again.\nFalling head: water or a slug was put in and the "
                       "water level falls again."));
    RecDatTimeUnitsDDL = MakeChoiceList(QStringLiteral("RecDatTimeUnitsDDL"), TimeUnitNames,
                                        QStringLiteral("Unit of the times in the grid"));
    RecDatWaterLevelUnitsDDL =
        MakeChoiceList(QStringLiteral("RecDatWaterLevelUnitsDDL"), LengthUnitNames,
                       QStringLiteral("Unit of the water levels in the grid and before the test"));
    auto* settings = new ReflowLayout;
    settings->Add(Captioned(QStringLiteral("&Water Level Measurement"), RecDatDataTypeDDL));
    settings->Add(Captioned(QStringLiteral("&Slug Test Type"), RecDatSlugTestTypeDDL));
    settings->Add(Captioned(QStringLiteral("Time &Units"), RecDatTimeUnitsDDL));
    settings->Add(Captioned(QStringLiteral("Water &Level Units"), RecDatWaterLevelUnitsDDL));
    settings->Add(BuildPreSlugBox());
    return settings;
}

QWidget* RecoveryDataPanel::BuildPreSlugBox() {
    RecDatPreSlugHeadLbl = new QLabel;
    RecDatPreSlugHeadLbl->setObjectName(QStringLiteral("RecDatPreSlugHeadLbl"));
    RecDatPreSlugHeadText =
        new TextBox(state_.RecDatPreSlugHeadText, QStringLiteral("RecDatPreSlugHeadText"));
    RecDatPreSlugHeadText->HoldCharacters(PreSlugCharacters, PreSlugCharacters);
    QSizePolicy policy = RecDatPreSlugHeadText->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    RecDatPreSlugHeadText->setSizePolicy(policy);
    RecDatPreSlugHeadText->setToolTip(
        QStringLiteral("The static water level before the slug was put in or taken out, measured "
                       "and in the unit as the readings: a depth for D, a head for H"));
    RecDatPreSlugHeadLbl->setBuddy(RecDatPreSlugHeadText);
    auto* box = new QGroupBox(QStringLiteral("&Pre-Slug Test Condition (Prior to Slug or Bail)"));
    auto* columns = new QHBoxLayout(box);
    columns->addWidget(RecDatPreSlugHeadLbl);
    columns->addWidget(RecDatPreSlugHeadText);
    columns->addStretch(1);
    FitPreSlugLabel();
    return box;
}

/// Wide enough for all that the label ever says, so that nothing beside it moves.
void RecoveryDataPanel::FitPreSlugLabel() {
    int widest = 0;
    for (int type = 0; type < static_cast<int>(DataTypeNames.size()); ++type)
        for (int unit = 0; unit < static_cast<int>(LengthUnitNames.size()); ++unit)
            widest = std::max(widest, RecDatPreSlugHeadLbl->fontMetrics().horizontalAdvance(
                                          ToQString(PreSlugLabel(type, unit))));
    RecDatPreSlugHeadLbl->setMinimumWidth(widest);
}

/// Beside its button, as far as the page is seen.
void RecoveryDataPanel::PlaceInsertRows() {
    insertRows_->adjustSize();
    const QWidget& button = *commands_.front();
    const QPoint wanted = button.mapTo(this, QPoint(button.width() + button.height() / 4, 0));
    const QRect seen = rect() & QRect(mapFromParent(QPoint()), parentWidget()->size());
    insertRows_->move(
        std::max(seen.left(), std::min(wanted.x(), seen.right() + 1 - insertRows_->width())),
        std::max(seen.top(), std::min(wanted.y(), seen.bottom() + 1 - insertRows_->height())));
    insertRows_->raise();
}

void RecoveryDataPanel::changeEvent(QEvent* event) {
    Panel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitPreSlugLabel();
}

void RecoveryDataPanel::resizeEvent(QResizeEvent* event) {
    Panel::resizeEvent(event);
    if (insertRows_->isVisible())
        PlaceInsertRows();
}

QPushButton* RecoveryDataPanel::MakeCommand(const QString& name, const QString& caption,
                                            const QString& tip,
                                            void (RecoveryDataPanel::*command)()) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(tip);
    // A click acts on the selected cells, so it leaves the focus with them.
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QPushButton::clicked, this, [this, command] { Carry(command); });
    commands_.push_back(button);
    return button;
}

QBoxLayout* RecoveryDataPanel::BuildCommands() {
    auto* rows = new QVBoxLayout;
    const auto add = [this, rows](const QString& name, const QString& caption, const QString& tip,
                                  void (RecoveryDataPanel::*command)()) {
        rows->addWidget(MakeCommand(name, caption, tip, command));
    };
    add(QStringLiteral("CmdInsertRows"), QStringLiteral("&Insert Rows"),
        QStringLiteral("Insert empty rows before or after the row where the selection ends"),
        &RecoveryDataPanel::OpenInsertRowsPanel);
    add(QStringLiteral("CmdRecDatDeleteRows"), QStringLiteral("&Delete Rows"),
        QStringLiteral("Delete the selected rows"), &RecoveryDataPanel::DeleteGridRows);
    add(QStringLiteral("CmdRecDatCut"), QStringLiteral("Cut (Ctrl-&X)"),
        QStringLiteral("Copy the selected cells and empty them"), &RecoveryDataPanel::Cut);
    add(QStringLiteral("CmdRecDataCopy"), QStringLiteral("&Copy (Ctrl-C)"),
        QStringLiteral("Copy the selected cells, also for a spreadsheet"),
        &RecoveryDataPanel::Copy);
    add(QStringLiteral("CmdRecDatPaste"), QStringLiteral("Paste (Ctrl-&V)"),
        QStringLiteral("Paste rows of cells from the first selected cell on; rows are added where "
                       "they are needed"),
        &RecoveryDataPanel::Paste);
    add(QStringLiteral("CmdSortByTime"), QStringLiteral("S&ort"),
        QStringLiteral("Sort the readings by time; empty rows move to the end"),
        &RecoveryDataPanel::SortByTime);
    rows->addStretch(1);
    return rows;
}

QBoxLayout* RecoveryDataPanel::BuildCheckColumn() {
    checkGrid_ = new RecDatCheckGrid(state_);
    checkGrid_->setToolTip(QStringLiteral(
        "Y is the change in head: how far the water level is from where it was before the test"));
    auto* rows = new QVBoxLayout;
    rows->addWidget(
        MakeCommand(QStringLiteral("CmdRecDatCheckData"), QStringLiteral("Check Data/Show &Y's"),
                    QStringLiteral("Check every reading and show its change in head Y below"),
                    &RecoveryDataPanel::CheckData));
    rows->addWidget(checkGrid_, 1);
    return rows;
}

void RecoveryDataPanel::ConnectLists() {
    connect(RecDatDataTypeDDL, &QComboBox::activated, this, [this](int position) {
        state_.RecDatDataTypeDDL = position;
        SetRecoveryHeadings();
    });
    connect(RecDatWaterLevelUnitsDDL, &QComboBox::activated, this, [this](int position) {
        state_.RecDatWaterLevelUnitsDDL = position;
        SetRecoveryHeadings();
    });
    connect(RecDatTimeUnitsDDL, &QComboBox::activated, this, [this](int position) {
        state_.RecDatTimeUnitsDDL = position;
        SetTimeHeading();
    });
    connect(RecDatSlugTestTypeDDL, &QComboBox::activated, this, [this](int position) {
        state_.RecDatSlugTestTypeDDL = position;
        Q_EMIT Edited();
    });
    connect(RecDatPreSlugHeadText, &TextBox::TextTaken, this, &RecoveryDataPanel::Edited);
}

} // namespace quarnel
