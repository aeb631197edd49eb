#include "wellgeometry/WellGeometryPanel.h"

#include "project/FieldTables.h"
#include "project/FixedLists.h"
#include "wellgeometry/WellDimensions.h"
#include "wellgeometry/WellGeometry.h"
#include "wellgeometry/WellSectionPicture.h"
#include "widgets/ChoiceList.h"
#include "widgets/LabelledBoxes.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"
#include "widgets/ReflowLayout.h"
#include "widgets/RibbonButton.h"
#include "widgets/TextBox.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <cstddef>
#include <string_view>

namespace quarnel {

namespace {

/// What each box means and in which unit it is entered.
constexpr std::array<const char*, 6> FieldToolTips = {
    "H: depth from the water table to the impervious bottom, in the vertical unit. Must be > 0.",
    "Lw: depth from the water table to the bottom of the well, in the vertical unit. Must be > 0 "
    "and not more than H.",
    "Le: length of the screen / filter pack through which water enters the well, in the vertical "
    "unit. Must be > 0 and not more than Lw.",
    "dw: diameter of the borehole, filter pack included, in the radial unit. Must be > 0.",
    "dc: inside diameter of the well casing, in the radial unit. Must be > 0 and not more than dw.",
    "dpor: drained porosity of the filter pack in percent, from 0 to 100. It enters the effective "
    "radius where the water table falls in the screen; 0 leaves the casing radius as it is."};
/// What a screen reader calls each box.
constexpr std::array<const char*, 6> FieldNames = {"H, water table to impervious bottom",
                                                   "Lw, water table to bottom of well",
                                                   "Le, length of screen or filter pack",
                                                   "dw, well borehole diameter",
                                                   "dc, well casing diameter",
                                                   "dpor, drained filter pack porosity in percent"};
/// The letter that Alt reaches each box by.
constexpr std::array<char, 6> FieldMnemonics = {'H', 'L', 'e', 'd', 'c', 'p'};
constexpr std::size_t PorosityUnitLabelIndex = 6;
/// A box wide enough for any length one would type.
constexpr int BoxCharacters = 10;

QString Name(const char* name, std::size_t index) {
    return QLatin1String(name) + QLatin1Char('_') + QString::number(index);
}

} // namespace

WellGeometryPanel::WellGeometryPanel(ProjectState& state, QWidget* parent)
    : Panel(parent)
    , state_(state) {
    auto* entries = new QVBoxLayout;
    entries->addWidget(BuildVerticalGroup());
    entries->addWidget(BuildRadialGroup());
    entries->addWidget(BuildPorosityRow());
    auto* check = new QPushButton(QStringLiteral("Chec&k Data"), this);
    check->setObjectName(QStringLiteral("SSCmdWellGeoCheckData"));
    check->setToolTip(QStringLiteral("Check that the dimensions are complete and fit together"));
    connect(check, &QPushButton::clicked, this, &WellGeometryPanel::CheckData);
    entries->addWidget(check, 0, Qt::AlignLeft);
    entries->addStretch(1);
    auto* layout = new ReflowLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->Add(entries);
    layout->Add(BuildIllustration(), 1);
    SetFirstControl(WellGeoText[GeoH]);
    ShowState();
}

void WellGeometryPanel::AddBox(int index, QGridLayout& grid, int row) {
    const auto i = static_cast<std::size_t>(index);
    auto* box = new TextBox(state_.WellGeoText[i], Name("WellGeoText", i), this);
    box->setToolTip(QString::fromUtf8(FieldToolTips[i]));
    box->setAccessibleName(QString::fromUtf8(FieldNames[i]));
    box->HoldCharacters(BoxCharacters, BoxCharacters);
    connect(box, &TextBox::TextTaken, this, &WellGeometryPanel::Edited);
    QLabel* label = MakeLabel(WellGeoFields[i].label, FieldMnemonics[i], Name("WellGeoLbl", i));
    label->setToolTip(box->toolTip());
    label->setBuddy(box);
    grid.addWidget(label, row, 0);
    grid.addWidget(box, row, 1);
    WellGeoText[i] = box;
    WellGeoLbl[i] = label;
}

QComboBox* WellGeometryPanel::AddUnitList(const QString& name, const QString& caption,
                                          const QString& accessibleName, int ProjectState::*unit,
                                          QGridLayout& grid) {
    QComboBox* list = MakeChoiceList(name, LengthUnitNames, accessibleName, accessibleName);
    connect(list, &QComboBox::activated, this, [this, unit](int index) {
        state_.*unit = index;
        Q_EMIT Edited();
    });
    auto* label = new QLabel(caption, this);
    label->setAccessibleName(accessibleName);
    label->setBuddy(list);
    // Beside the last box, where it is read after them and costs no row.
    const int row = grid.rowCount() - 1;
    grid.addWidget(label, row, 2);
    grid.addWidget(list, row, 3);
    grid.setColumnStretch(4, 1);
    return list;
}

QWidget* WellGeometryPanel::BuildVerticalGroup() {
    auto* group = new QGroupBox(QStringLiteral(" Vertical Measurements"), this);
    auto* grid = new QGridLayout(group);
    for (const int index : {GeoH, GeoLw, GeoLe})
        AddBox(index, *grid, index);
    WellGeoVertUnitsDDL = AddUnitList(
        QStringLiteral("WellGeoVertUnitsDDL"), QStringLiteral("&Units"),
        QStringLiteral("Unit of H, Lw and Le"), &ProjectState::WellGeoVertUnitsDDL, *grid);
    return group;
}

QWidget* WellGeometryPanel::BuildRadialGroup() {
    auto* group = new QGroupBox(QStringLiteral("Radial Measurements"), this);
    auto* grid = new QGridLayout(group);
    for (const int index : {GeoDw, GeoDc})
        AddBox(index, *grid, index - GeoDw);
    WellGeoRadUnitsDDL =
        AddUnitList(QStringLiteral("WellGeoRadUnitsDDL"), QStringLiteral("U&nits"),
                    QStringLiteral("Unit of dw and dc"), &ProjectState::WellGeoRadUnitsDDL, *grid);
    return group;
}

QWidget* WellGeometryPanel::BuildPorosityRow() {
    auto* group = new QGroupBox(QStringLiteral("Drained Filter Pack Porosity"), this);
    auto* grid = new QGridLayout(group);
    AddBox(GeoDpor, *grid, 0);
    auto* unit = new QLabel(ToQString(PorosityUnitLabel), this);
    unit->setObjectName(Name("WellGeoLbl", PorosityUnitLabelIndex));
    unit->setToolTip(WellGeoText[GeoDpor]->toolTip());
    grid->addWidget(unit, 0, 2);
    grid->setColumnStretch(3, 1);
    WellGeoLbl[PorosityUnitLabelIndex] = unit;
    return group;
}

QAbstractButton* WellGeometryPanel::BuildRibbon(const QString& name, const QString& text,
                                                const QString& toolTip) {
    auto* ribbon = new RibbonButton(text, this);
    ribbon->setObjectName(name);
    ribbon->setToolTip(toolTip);
    return ribbon;
}

QWidget* WellGeometryPanel::BuildIllustration() {
    SSRibbon1 = BuildRibbon(
        QStringLiteral("SSRibbon1"), QStringLiteral("Water Table &above the Screen/Filter Pack."),
        QStringLiteral("Show a well whose screen lies wholly below the water table"));
    SSRibbon2 = BuildRibbon(QStringLiteral("SSRibbon2"),
                            QStringLiteral("Water Table &in the Screen/Filter Pack."),
                            QStringLiteral("Show a well whose screen the water table crosses"));
    auto* pair = new QButtonGroup(this);
    pair->addButton(SSRibbon1);
    pair->addButton(SSRibbon2);
    connect(SSRibbon1, &QAbstractButton::toggled, this, &WellGeometryPanel::ChoosePicture);

    auto* group = new QGroupBox(QStringLiteral("Well Section"), this);
    auto* rows = new QVBoxLayout(group);
    auto* ribbons = new ReflowLayout;
    ribbons->Add(SSRibbon1, 1);
    ribbons->Add(SSRibbon2, 1);
    rows->addLayout(ribbons);
    for (std::size_t i = 0; i < Image1.size(); ++i) {
        Image1[i] = new WellSectionPicture(
            QStringLiteral(":/wellgeometry/well-section-%1.svg").arg(i), group);
        Image1[i]->setObjectName(Name("Image1", i));
        rows->addWidget(Image1[i], 1);
    }
    return group;
}

void WellGeometryPanel::ChoosePicture(bool firstIsPressed) {
    state_.SSRibbon1Pressed = firstIsPressed;
    Image1[0]->setVisible(firstIsPressed);
    Image1[1]->setVisible(!firstIsPressed);
}

void WellGeometryPanel::ShowState() {
    for (TextBox* box : WellGeoText)
        box->ShowNewText();
    WellGeoVertUnitsDDL->setCurrentIndex(state_.WellGeoVertUnitsDDL);
    WellGeoRadUnitsDDL->setCurrentIndex(state_.WellGeoRadUnitsDDL);
    const bool firstIsPressed = state_.SSRibbon1Pressed;
    (firstIsPressed ? SSRibbon1 : SSRibbon2)->setChecked(true);
    ChoosePicture(firstIsPressed);
}

void WellGeometryPanel::ShowCheckedData() {
    for (TextBox* box : WellGeoText)
        box->ShowText();
}

void WellGeometryPanel::GoTo(const FaultPlace& place) {
    if (place.kind != FaultPlace::GeometryBox)
        return;
    TextBox* box = WellGeoText[static_cast<std::size_t>(place.box)];
    box->setFocus();
    box->selectAll();
}

void WellGeometryPanel::CheckData() {
    WellDimensions checked;
    const Result result = CheckWellGeometry(state_, checked);
    ShowCheckedData();
    if (result.IsError()) {
        ShowMessage(this, ToQString(result.message), QStringLiteral("Data Error"));
        GoTo(result.place);
    } else {
        Q_EMIT Accepted();
        ShowMessage(this, QStringLiteral("Well Geometry data is complete and consistent."));
    }
}

} // namespace quarnel
