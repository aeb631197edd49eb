#include "app/SiteIdentificationPanel.h"

#include "project/FieldTables.h"
#include "widgets/LabelledBoxes.h"
#include "widgets/QtTexts.h"
#include "widgets/ReflowLayout.h"
#include "widgets/TextBox.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <cstddef>
#include <string>
#include <string_view>

namespace quarnel {

namespace {

/// In the order of SiteIDFields. Alt with F, T and B opens the menu bar, so no field has them;
/// three fields are left without a letter.
constexpr std::array<FieldHelp, 20> Help = {{
    {'L', "Number of the leaking underground storage tank incident"},
    {'U', "Registration number of the underground storage tank at the site"},
    {'N', "Name of the site"},
    {'d', "Street address of the site"},
    {'C', "City of the site"},
    {'S', "State of the site"},
    {'Z', "Postal code of the site"},
    {'m', "Client: the party responsible for the site"},
    {'r', "Street address of the client"},
    {'y', "City of the client"},
    {0, "State of the client"},
    {'P', "Postal code of the client"},
    {'J', "The client's job or account number for this work"},
    {'o', "Consulting firm that analyses the test; kept for the next new project"},
    {'A', "Street address of the consulting firm; kept for the next new project"},
    {'i', "City of the consulting firm; kept for the next new project"},
    {'e', "State of the consulting firm; kept for the next new project"},
    {0, "Postal code of the consulting firm; kept for the next new project"},
    {'G', "Name of the certified groundwater professional; kept for the next new project"},
    {0, "The professional's certification number; kept for the next new project"},
}};

/// How many characters a field usually holds, and down to how many its box may shrink.
struct FieldRoom {
    int usual;
    int least;
};
constexpr FieldRoom NameRoom = {40, 14};
constexpr FieldRoom CityRoom = {20, 12};
constexpr FieldRoom StateRoom = {10, 7};
constexpr FieldRoom ZipRoom = {10, 7};
constexpr FieldRoom NumberRoom = {20, 8};

FieldRoom RoomOf(std::string_view label) {
    if (label == "City")
        return CityRoom;
    if (label == "State")
        return StateRoom;
    if (label == "ZIP")
        return ZipRoom;
    const bool isNumber = label.ends_with("No.") || label == "Job/Account";
    return isNumber ? NumberRoom : NameRoom;
}

/// Whether a field stands behind the one before it instead of below, where there is room: city,
/// state and ZIP are one line, as on an envelope.
bool FollowsOnItsLine(std::string_view label) {
    return label == "State" || label == "ZIP" || label == "Certification No.";
}

QFormLayout* MakeForm() {
    auto* form = new QFormLayout;
    SetUpForm(form);
    return form;
}

} // namespace

SiteIdentificationPanel::SiteIdentificationPanel(ProjectState& state, QWidget* parent)
    : Panel(parent)
    , state_(state) {
    auto* numbers = new ReflowLayout;
    for (std::size_t i = 0; i < SiteIDFields.size() && SiteIDFields[i].group.empty(); ++i) {
        QFormLayout* form = MakeForm();
        AddLine(i, form);
        numbers->Add(form);
    }
    auto* sides = new ReflowLayout;
    sides->Add(MakeFrame("Site Information"), 1);
    sides->Add(MakeFrame("Client"), 1);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addLayout(numbers);
    rows->addLayout(sides);
    rows->addWidget(MakeFrame("Consultant"));
    rows->addStretch();
    SetFirstControl(SiteIDText[LustNo]);
}

QGroupBox* SiteIdentificationPanel::MakeFrame(std::string_view group) {
    QFormLayout* form = MakeForm();
    ReflowLayout* line = nullptr;
    for (std::size_t i = 0; i < SiteIDFields.size(); ++i) {
        const IdentificationField& field = SiteIDFields[i];
        if (field.group != group)
            continue;
        if (!FollowsOnItsLine(field.label)) {
            line = AddLine(i, form);
            continue;
        }
        MakeField(i);
        auto* pair = new QHBoxLayout;
        QLabel* label = SiteIDLbl[static_cast<std::size_t>(field.index)];
        label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        pair->addWidget(label);
        pair->addWidget(SiteIDText[static_cast<std::size_t>(field.index)]);
        line->Add(pair, 1);
    }
    auto* frame = new QGroupBox(ToQString(group));
    frame->setLayout(form);
    return frame;
}

ReflowLayout* SiteIdentificationPanel::AddLine(std::size_t i, QFormLayout* form) {
    MakeField(i);
    const auto index = static_cast<std::size_t>(SiteIDFields[i].index);
    auto* line = new ReflowLayout;
    line->Add(SiteIDText[index], 1);
    form->addRow(SiteIDLbl[index], line);
    return line;
}

void SiteIdentificationPanel::MakeField(std::size_t i) {
    const IdentificationField& field = SiteIDFields[i];
    const auto index = static_cast<std::size_t>(field.index);
    const QString number = QString::number(field.index);
    auto* box = new TextBox(state_.SiteIDText[index], QStringLiteral("SiteIDText_") + number);
    const FieldRoom room = RoomOf(field.label);
    box->HoldCharacters(room.usual, room.least);
    box->setAccessibleName(ToQString(field.group.empty() ? std::string(field.label)
                                                         : std::string(field.group) + ": " +
                                                               std::string(field.label)));
    SiteIDText[index] = box;
    SiteIDLbl[index] =
        MakeLabel(field.label, Help[i].mnemonic, QStringLiteral("SiteIDLbl_") + number);
    Join(SiteIDLbl[index], box, QString::fromUtf8(Help[i].meaning));
}

void SiteIdentificationPanel::ShowState() {
    for (TextBox* box : SiteIDText)
        box->ShowNewText();
}

} // namespace quarnel
