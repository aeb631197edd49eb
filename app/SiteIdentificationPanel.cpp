#include "app/SiteIdentificationPanel.h"

#include "project/FieldTables.h"
#include "widgets/LabelledBoxes.h"
#include "widgets/QtTexts.h"
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

QGroupBox* MakeFrame(const QString& caption, QFormLayout* form) {
    auto* frame = new QGroupBox(caption);
    frame->setLayout(form);
    return frame;
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
    auto* numbers = MakeForm();
    auto* site = MakeForm();
    auto* client = MakeForm();
    auto* consultant = MakeForm();
    AddGroup("", numbers);
    AddGroup("Site Information", site);
    AddGroup("Client", client);
    AddGroup("Consultant", consultant);

    auto* sides = new QHBoxLayout;
    sides->addWidget(MakeFrame(QStringLiteral("Site Information"), site), 1);
    sides->addWidget(MakeFrame(QStringLiteral("Client"), client), 1);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(numbers);
    rows->addLayout(sides);
    rows->addWidget(MakeFrame(QStringLiteral("Consultant"), consultant));
    rows->addStretch();
    SetFirstControl(SiteIDText[LustNo]);
}

void SiteIdentificationPanel::AddGroup(std::string_view group, QFormLayout* form) {
    for (std::size_t i = 0; i < SiteIDFields.size(); ++i) {
        const IdentificationField& field = SiteIDFields[i];
        if (field.group != group)
            continue;
        const auto index = static_cast<std::size_t>(field.index);
        const QString number = QString::number(field.index);
        SiteIDText[index] =
            new TextBox(state_.SiteIDText[index], QStringLiteral("SiteIDText_") + number);
        SiteIDLbl[index] =
            MakeLabel(field.label, Help[i].mnemonic, QStringLiteral("SiteIDLbl_") + number);
        AddRow(form, SiteIDLbl[index], SiteIDText[index], QString::fromUtf8(Help[i].meaning));
        SiteIDText[index]->setAccessibleName(ToQString(
            field.group.empty() ? std::string(field.label)
                                : std::string(field.group) + ": " + std::string(field.label)));
    }
}

void SiteIdentificationPanel::ShowState() {
    for (TextBox* box : SiteIDText)
        box->ShowNewText();
}

} // namespace quarnel
