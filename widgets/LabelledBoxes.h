#pragma once

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <string_view>

namespace quarnel {

/// What a field needs beside its caption: the letter that Alt reaches it by (0 for none) and a
/// sentence about what it means.
struct FieldHelp {
    char mnemonic;
    const char* meaning;
};

/// A label called `name` that shows `caption` with the first `mnemonic` in it underlined.
QLabel* MakeLabel(std::string_view caption, char mnemonic, const QString& name);

/// Makes `label` the buddy of `box` and gives both `meaning` as their tooltip.
void Join(QLabel* label, QLineEdit* box, const QString& meaning);

/// Adds a row to `form`: the label, which becomes the box's buddy, and the box with its meaning as
/// tooltip.
void AddRow(QFormLayout* form, QLabel* label, QLineEdit* box, const QString& meaning);

/// Labels to the left; the boxes of the form are as wide as they ask to be.
void SetUpForm(QFormLayout* form);

} // namespace quarnel
