#pragma once

#include <QComboBox>
#include <QString>
#include <span>
#include <string_view>

namespace quarnel {

/// A drop-down list called `name` with these entries, explained by `toolTip`; `accessibleName` is
/// what a screen reader calls it where no label stands beside it.
QComboBox* MakeChoiceList(const QString& name, std::span<const std::string_view> entries,
                          const QString& toolTip, const QString& accessibleName = {});

} // namespace quarnel
