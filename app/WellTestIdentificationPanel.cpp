#include "app/WellTestIdentificationPanel.h"

#include "project/FieldTables.h"
#include "widgets/LabelledBoxes.h"
#include "widgets/TextBox.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QVBoxLayout>
#include <cstddef>

namespace quarnel {

namespace {

/// In the order of WellTestIDFields.
constexpr std::array<FieldHelp, 6> Help = {{
    {'L', "Label of the monitoring well in which the slug test was made"},
    {'D', "Date of the slug test, as month/day/year; any text is kept as typed"},
    {'A', "Who analyses the test"},
    {'P', "Who made the test in the field: first name"},
    {0, "Who made the test in the field: second name"},
    {0, "Who made the test in the field: third name"},
}};

constexpr int NameCharacters = 40;
constexpr int NumberCharacters = 12; ///< of a date or a volume
constexpr int LeastCharacters = 10;

} // namespace

WellTestIdentificationPanel::WellTestIdentificationPanel(ProjectState& state, QWidget* parent)
    : Panel(parent)
    , state_(state) {
    auto* frame = new QGroupBox;
    frame->setAccessibleName(QStringLiteral("Well and test"));
    auto* form = new QFormLayout(frame);
    SetUpForm(form);
    AddFields(form);
    AddSlugVolume(form);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(frame);
    rows->addStretch();
    SetFirstControl(WellTestIDTxt[WellLabel]);
}

void WellTestIdentificationPanel::AddFields(QFormLayout* form) {
    for (std::size_t i = 0; i < WellTestIDFields.size(); ++i) {
        const IdentificationField& field = WellTestIDFields[i];
        const auto index = static_cast<std::size_t>(field.index);
        const QString number = QString::number(field.index);
        WellTestIDTxt[index] =
            new TextBox(state_.WellTestIDTxt[index], QStringLiteral("WellTestIDTxt_") + number);
        WellTestID[index] =
            MakeLabel(field.label, Help[i].mnemonic, QStringLiteral("WellTestID_") + number);
        const int characters = field.index == TestDate ? NumberCharacters : NameCharacters;
        WellTestIDTxt[index]->HoldCharacters(characters, LeastCharacters);
        const QString meaning = QString::fromUtf8(Help[i].meaning);
        AddRow(form, WellTestID[index], WellTestIDTxt[index], meaning);
        if (field.label.empty())
            WellTestIDTxt[index]->setAccessibleName(meaning);
    }
}

void WellTestIdentificationPanel::AddSlugVolume(QFormLayout* form) {
    VolumeOfSlugText = new TextBox(state_.VolumeOfSlugText, QStringLiteral("VolumeOfSlugText"));
    VolumeOfSlugText->HoldCharacters(NumberCharacters, LeastCharacters);
    QLabel* label = MakeLabel(SlugVolumeLabel, 'V', QStringLiteral("VolumeOfSlugLbl"));
    AddRow(form, label, VolumeOfSlugText,
           QStringLiteral("Volume of the slug put into or taken out of the well, in litres"));
    // The diagnostics read it.
    connect(VolumeOfSlugText, &QLineEdit::textChanged, this, &Panel::Edited);
}

void WellTestIdentificationPanel::ShowState() {
    for (TextBox* box : WellTestIDTxt)
        box->ShowNewText();
    VolumeOfSlugText->ShowNewText();
}

} // namespace quarnel
