#include "tests/gui/AccessibilityWalk.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLayout>
#include <QMetaEnum>
#include <QTabBar>
#include <QWidget>
#include <QWindow>
#include <QtTest>
#include <algorithm>

namespace quarnel::windowtest {

namespace {

using namespace Qt::StringLiterals;

QString Describe(const QWidget* widget) {
    return QLatin1String(widget->metaObject()->className()) + u" "_s + widget->objectName();
}

QString Describe(QAccessibleInterface& item) {
    const QMetaEnum roles = QMetaEnum::fromType<QAccessible::Role>();
    QString text = QLatin1String(roles.valueToKey(item.role())) + u" \""_s +
                   item.text(QAccessible::Name) + u"\""_s;
    if (const auto* widget = qobject_cast<QWidget*>(item.object()))
        text += u" "_s + Describe(widget);
    return text;
}

/// Roles that say nothing of what a control is for.
bool IsGeneric(QAccessible::Role role) {
    switch (role) {
    case QAccessible::NoRole:
    case QAccessible::Client:
    case QAccessible::Pane:
    case QAccessible::Border:
    case QAccessible::Whitespace:
    case QAccessible::LayeredPane:
        return true;
    default:
        return false;
    }
}

/// Whether a user who does not see it must be told what it is.
bool NeedsName(QAccessibleInterface& item) {
    switch (item.role()) {
    case QAccessible::Dialog:
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::PageTabList:
    case QAccessible::PageTab:
    case QAccessible::Table:
    case QAccessible::Tree:
    case QAccessible::List:
    case QAccessible::ColumnHeader:
    case QAccessible::MenuItem:
    case QAccessible::Link:
    case QAccessible::Chart:
    case QAccessible::Graphic:
    case QAccessible::Grouping:
    case QAccessible::Grip:
    case QAccessible::ProgressBar:
        return true;
    case QAccessible::StaticText: {
        // A line that says nothing at the moment needs none.
        const auto* label = qobject_cast<QLabel*>(item.object());
        return label == nullptr || !label->text().isEmpty() || !label->pixmap().isNull();
    }
    default:
        return item.state().focusable;
    }
}

bool HasLetter(const QString& caption) {
    return !QKeySequence::mnemonic(caption).isEmpty();
}

/// Whether Alt with a letter leads to the widget.
bool HasMnemonic(const QWidget& widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        if (HasLetter(button->text()))
            return true;
    const auto labels = widget.window()->findChildren<QLabel*>();
    if (std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) {
            return label->buddy() == &widget && HasLetter(label->text());
        }))
        return true;
    const auto* group = qobject_cast<const QGroupBox*>(widget.parentWidget());
    return group != nullptr && HasLetter(group->title());
}

class TreeWalk {
public:
    TreeWalk(QWidget& window, const QList<QWidget*>& stops)
        : stops_(stops) {
        Walk(QAccessible::queryAccessibleInterface(&window));
    }
    const QStringList& Faults() const { return faults_; }

private:
    void Walk(QAccessibleInterface* item) {
        if (item == nullptr || !item->isValid() || item->state().invisible ||
            item->role() == QAccessible::ScrollBar)
            return;
        auto* widget = qobject_cast<QWidget*>(item->object());
        if (widget != nullptr && !widget->isVisible())
            return;
        // What hands the keyboard on to its proxy is no control of its own.
        if (widget == nullptr || widget->focusProxy() == nullptr)
            Look(*item, widget);
        if (auto* table = item->tableInterface()) {
            WalkTable(*table, widget);
            return;
        }
        for (int i = 0; i < item->childCount(); ++i)
            Walk(item->child(i));
    }

    void WalkTable(QAccessibleTableInterface& table, const QWidget* widget) {
        for (int column = 0; column < table.columnCount(); ++column) {
            const QString heading = table.columnDescription(column);
            // A table of two columns, name and value, has no headings to show.
            const auto* view = qobject_cast<const QAbstractItemView*>(widget);
            const auto* header =
                view == nullptr ? nullptr : view->findChild<QHeaderView*>(QString());
            if (heading.trimmed().isEmpty() && header != nullptr && header->isVisible())
                faults_.append(u"Column without heading in "_s + Describe(widget));
            auto* cell = table.rowCount() > 0 ? table.cellAt(0, column) : nullptr;
            if (cell != nullptr && IsGeneric(cell->role()))
                faults_.append(u"No role: cell of "_s + Describe(widget));
        }
    }

    void Look(QAccessibleInterface& item, QWidget* widget) {
        const bool focusable = item.state().focusable && !item.state().disabled;
        if (item.role() == QAccessible::NoRole || (focusable && IsGeneric(item.role())))
            faults_.append(u"No role: "_s + Describe(item));
        else if (NeedsName(item) && NameOf(item).trimmed().isEmpty())
            faults_.append(u"No name: "_s + Describe(item));
        if (widget != nullptr && focusable && !widget->isWindow() && IsControl(item) &&
            !stops_.contains(widget) && !IsPartOfStop(widget) && !HasMnemonic(*widget))
            faults_.append(u"Not to be reached: "_s + Describe(item));
    }

    /// Radio buttons are one stop, and arrows go on; a number's box is part of its spin box.
    bool IsPartOfStop(const QWidget* widget) const {
        if (qobject_cast<const QAbstractSpinBox*>(widget->parentWidget()) != nullptr)
            return stops_.contains(widget->parentWidget());
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if (button == nullptr || !(button->autoExclusive() || button->group() != nullptr))
            return false;
        return std::any_of(stops_.begin(), stops_.end(), [&](const QWidget* stop) {
            const auto* other = qobject_cast<const QAbstractButton*>(stop);
            return other != nullptr && other->parentWidget() == button->parentWidget() &&
                   other->autoExclusive();
        });
    }

    static bool IsControl(QAccessibleInterface& item) {
        return item.role() != QAccessible::StaticText && item.role() != QAccessible::MenuBar;
    }

    const QList<QWidget*>& stops_;
    QStringList faults_;
};

/// A place on the way from the window down to a control: a widget, or a layout within one.
struct Place {
    const QObject* object;
    QRect rect; ///< on the screen
};

bool AddLayouts(const QLayout* layout, const QWidget* widget, const QWidget* parent,
                QList<Place>& path) {
    if (layout == nullptr)
        return false;
    for (int i = 0; i < layout->count(); ++i) {
        const QLayoutItem* item = layout->itemAt(i);
        if (item->widget() == widget)
            return true;
        if (const QLayout* inner = const_cast<QLayoutItem*>(item)->layout()) {
            QList<Place> below;
            if (AddLayouts(inner, widget, parent, below)) {
                const QRect rect = inner->geometry();
                path.append({inner, QRect(parent->mapToGlobal(rect.topLeft()), rect.size())});
                path += below;
                return true;
            }
        }
    }
    return false;
}

QList<Place> PathTo(const QWidget* widget) {
    QList<const QWidget*> chain;
    for (const QWidget* step = widget; step != nullptr; step = step->parentWidget()) {
        chain.prepend(step);
        if (step->isWindow())
            break;
    }
    QList<Place> path;
    for (qsizetype i = 0; i < chain.size(); ++i) {
        if (i > 0)
            AddLayouts(chain[i - 1]->layout(), chain[i], chain[i - 1], path);
        path.append({chain[i], QRect(chain[i]->mapToGlobal(QPoint()), chain[i]->size())});
    }
    return path;
}

/// Whether what stands at `next` is read before what stands at `last`, both within `around`.
bool IsReadBefore(const QRect& next, const QRect& last, const QObject* around) {
    // A chart is read along its axis, whatever height its marks have.
    auto* item = QAccessible::queryAccessibleInterface(const_cast<QObject*>(around));
    if (item != nullptr && item->role() == QAccessible::Chart)
        return next.right() < last.left();
    if (next.bottom() < last.top())
        return true;
    const bool besideEachOther = next.top() <= last.bottom() && last.top() <= next.bottom();
    return besideEachOther && next.right() < last.left();
}

} // namespace

QString NameOf(QAccessibleInterface& item) {
    if (item.role() != QAccessible::ComboBox)
        return item.text(QAccessible::Name);
    for (const auto& [other, relation] : item.relations(QAccessible::Label))
        if (other->role() != QAccessible::Grouping)
            return other->text(QAccessible::Name);
    return {};
}

QStringList FaultsOfTree(QWidget& window, const QList<QWidget*>& stops) {
    return TreeWalk(window, stops).Faults();
}

QList<QWidget*> TabStops(QWidget& window) {
    constexpr int Most = 200;
    const auto step = [&window](Qt::Key key) {
        QTest::keyClick(window.windowHandle(), key,
                        key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        return window.focusWidget();
    };
    QList<QWidget*> stops;
    QWidget* const first = window.focusWidget();
    QWidget* at = first;
    while (at != nullptr && !stops.contains(at) && stops.size() < Most) {
        stops.append(at);
        at = step(Qt::Key_Tab);
    }
    if (at == first)
        return stops;
    // Something keeps Tab: what lies behind it is found backwards from the first.
    const qsizetype forwards = stops.size();
    first->setFocus();
    at = step(Qt::Key_Backtab);
    while (at != nullptr && !stops.contains(at) && stops.size() < Most) {
        stops.insert(forwards, at);
        at = step(Qt::Key_Backtab);
    }
    first->setFocus();
    return stops;
}

QStringList FaultsOfOrder(const QList<QWidget*>& stops) {
    QStringList faults;
    for (qsizetype i = 1; i < stops.size(); ++i) {
        const QList<Place> last = PathTo(stops[i - 1]);
        const QList<Place> next = PathTo(stops[i]);
        qsizetype parting = 0;
        while (parting < last.size() && parting < next.size() &&
               last[parting].object == next[parting].object)
            ++parting;
        if (parting < last.size() && parting < next.size() &&
            IsReadBefore(next[parting].rect, last[parting].rect, last[parting - 1].object))
            faults.append(Describe(stops[i - 1]) + u" before "_s + Describe(stops[i]));
    }
    return faults;
}

} // namespace quarnel::windowtest
