#pragma once

#include <QLayout>
#include <QPushButton>
#include <QString>

namespace quarnel {

/// A button called `name` that Enter in another control does not press.
QPushButton* MakeCommandButton(const QString& name, const QString& text, const QString& toolTip);

/// Puts such a button into `row`; it calls `command` of the window, or of what that is made from.
template <class Window, class Commands>
QPushButton* AddCommandButton(QLayout* row, Window* window, const QString& name,
                              const QString& text, const QString& toolTip,
                              void (Commands::*command)()) {
    QPushButton* button = MakeCommandButton(name, text, toolTip);
    QObject::connect(button, &QPushButton::clicked, window, command);
    row->addWidget(button);
    return button;
}

} // namespace quarnel
