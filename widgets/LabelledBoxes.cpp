#include "widgets/LabelledBoxes.h"

#include "widgets/QtTexts.h"

namespace quarnel {

QLabel* MakeLabel(std::string_view caption, char mnemonic, const QString& name) {
    QString text = ToQString(caption);
    if (mnemonic != 0)
        text.insert(text.indexOf(QLatin1Char(mnemonic)), QLatin1Char('&'));
    auto* label = new QLabel(text);
    label->setObjectName(name);
    return label;
}

void Join(QLabel* label, QLineEdit* box, const QString& meaning) {
    label->setBuddy(box);
    label->setToolTip(meaning);
    box->setToolTip(meaning);
}

void AddRow(QFormLayout* form, QLabel* label, QLineEdit* box, const QString& meaning) {
    Join(label, box, meaning);
    form->addRow(label, box);
}

void SetUpForm(QFormLayout* form) {
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setRowWrapPolicy(QFormLayout::DontWrapRows);
}

} // namespace quarnel
