#include "kcompute/UseIgnoreGrid.h"

#include "kcompute/UseIgnore.h"
#include "recovery/RecoveryDa.h"
#include "recovery/RecoveryData.h"
#include "widgets/Colours.h"
#include "widgets/QtTexts.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QStyledItemDelegate>
#include <algorithm>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnel {

namespace {

constexpr std::string_view CriteriaHeading = "Criteria\r\n(U/I)";

/// Dims the rows of points that say "Ignore".
class MarkDelegate : public QStyledItemDelegate {
public:
    MarkDelegate(const std::vector<Mark>& marks, QObject* parent)
        : QStyledItemDelegate(parent)
        , marks_(marks) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto row = static_cast<std::size_t>(index.row());
        if (row >= marks_.size() || marks_[row] != Mark::Ignore)
            return;
        QPalette& palette = option->palette;
        palette.setColor(QPalette::Text, Dimmed(palette.color(QPalette::Active, QPalette::Text),
                                                palette.color(QPalette::Active, QPalette::Base)));
    }

private:
    const std::vector<Mark>& marks_;
};

/// A number that other readings do not share, but for a chance that nobody lives to see.
std::uint64_t NumberOf(const RecoveryPointList& points) {
    constexpr std::uint64_t Odd = 0x9E3779B97F4A7C15U;
    std::uint64_t number = points.size();
    for (const RecoveryPoint& point : points)
        for (const std::string_view text : {point.timeText.View(), point.levelText.View()})
            number = (number ^ std::hash<std::string_view>()(text)) * Odd + (number >> 29U);
    return number;
}

std::vector<TableColumn> UseIgnoreColumns(const ProjectState& state, const WorkingValues& working) {
    const auto pointText = [&working](auto textOf) {
        return [&working, textOf](std::size_t row) {
            const RecoveryPointList& points = *working.recovery.RecoveryPoints;
            return row < points.size() ? ToQString(textOf(points[row])) : QString();
        };
    };
    return {{[] { return ToHeading(SampleHeading()); },
             [](std::size_t row) { return QString::number(row + 1); }, true},
            {[&state] { return ToHeading(TimeHeading(state.RecDatTimeUnitsDDL)); },
             pointText([](const RecoveryPoint& point) { return point.timeText.ToString(); })},
            {[&state] { return ToHeading(YHeading(state.RecDatWaterLevelUnitsDDL)); },
             pointText([](const RecoveryPoint& point) { return YText(point); })},
            {[] { return ToHeading(CriteriaHeading); },
             [&working](std::size_t row) {
                 return row < working.marks.size() ? ToQString(MarkText(working.marks[row]))
                                                   : QString();
             }}};
}

} // namespace

UseIgnoreGrid::UseIgnoreGrid(const ProjectState& state, const WorkingValues& working,
                             MarkEditor& editor, QWidget* parent)
    : GridView(parent)
    , working_(working)
    , editor_(editor)
    , model_(UseIgnoreColumns(state, working)) {
    setObjectName(QStringLiteral("RecDatWeightGrid"));
    setAccessibleName(QStringLiteral("Points to use or ignore in the fit"));
    setModel(&model_);
    setItemDelegate(new MarkDelegate(working.marks, this));
    SetWidestTexts({QString(), QStringLiteral("100000.00"), QStringLiteral("-1.234567E-05"),
                    QStringLiteral("Ignore")});
}

std::optional<MarkKey> UseIgnoreGrid::MarkKeyOf(const QKeyEvent& event) {
    if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0)
        return std::nullopt;
    const QString text = event.text();
    if (text == QLatin1String(" "))
        return MarkKey::TurnOver;
    if (text == QLatin1String("U"))
        return MarkKey::Use;
    if (text == QLatin1String("I"))
        return MarkKey::Ignore;
    return std::nullopt;
}

void UseIgnoreGrid::Refill() {
    const RecoveryPointList& points = *working_.recovery.RecoveryPoints;
    const std::uint64_t readings = NumberOf(points);
    if (readings == std::exchange(readings_, readings) && model_.rowCount() > 0) {
        // A look at another tab costs nobody what was selected.
        for (int column = 0; column < model_.columnCount(); ++column)
            model_.ShowTexts(0, model_.rowCount() - 1, column);
    } else {
        model_.ShowRows(std::max<std::size_t>(1, points.size()));
        // In the column of the marks, so that its keys work as soon as the grid has the focus.
        setCurrentIndex(model_.index(0, CriteriaColumn));
        scrollToTop();
    }
    Q_EMIT Refilled();
}

bool UseIgnoreGrid::SelectsMarksOnly() const {
    const ViewBlock block = SelectedCells();
    return currentIndex().isValid() && block.current.column == CriteriaColumn &&
           block.end.column == CriteriaColumn;
}

PointRuns UseIgnoreGrid::SelectedRuns() const {
    PointRuns runs;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection)
        runs.push_back(
            {static_cast<std::size_t>(range.top()), static_cast<std::size_t>(range.bottom())});
    if (runs.empty() && currentIndex().isValid()) {
        const auto row = static_cast<std::size_t>(currentIndex().row());
        runs.push_back({row, row});
    }
    std::sort(runs.begin(), runs.end(),
              [](const PointRun& a, const PointRun& b) { return a.first < b.first; });
    return runs;
}

void UseIgnoreGrid::SelectRuns(const PointRuns& runs, std::size_t current, std::size_t end) {
    const auto markOf = [this](std::size_t row) {
        return model_.index(static_cast<int>(row), CriteriaColumn);
    };
    QItemSelection selection;
    for (const PointRun& run : runs)
        selection.append(QItemSelectionRange(markOf(run.first), markOf(run.last)));
    selectionModel()->setCurrentIndex(markOf(current), QItemSelectionModel::NoUpdate);
    // Emptied first: the model would compare every old run with every new one.
    selectionModel()->clearSelection();
    selectionModel()->select(selection, QItemSelectionModel::Select);
    scrollTo(markOf(end));
}

void UseIgnoreGrid::MarkRuns(MarkKey key) {
    editor_.Press(key, SelectedRuns());
    ShowMarks();
    Q_EMIT MarksChanged();
}

void UseIgnoreGrid::UseOnlySelected() {
    std::vector<std::size_t> points;
    for (const PointRun& run : SelectedRuns())
        for (std::size_t point = run.first; point <= run.last; ++point)
            points.push_back(point);
    editor_.UseOnly(points);
    ShowMarks();
    Q_EMIT MarksChanged();
}

QString UseIgnoreGrid::BlockText() const {
    const PointRuns runs = SelectedRuns();
    if (runs.size() < 2)
        return GridView::BlockText();
    QString text;
    for (const PointRun& run : runs)
        for (std::size_t row = run.first; row <= run.last; ++row)
            text += model_.index(static_cast<int>(row), CriteriaColumn).data().toString() +
                    QLatin1Char('\n');
    return text;
}

void UseIgnoreGrid::Undo() {
    editor_.Undo();
    ShowMarks();
    Q_EMIT MarksChanged();
}

void UseIgnoreGrid::Redo() {
    editor_.Redo();
    ShowMarks();
    Q_EMIT MarksChanged();
}

void UseIgnoreGrid::ShowMarks() {
    model_.ShowTexts(0, model_.rowCount() - 1, CriteriaColumn);
    // Whole rows are dimmed.
    viewport()->update();
}

void UseIgnoreGrid::keyPressEvent(QKeyEvent* event) {
    if (const std::optional<MarkKey> key = MarkKeyOf(*event)) {
        if (SelectsMarksOnly())
            MarkRuns(*key);
        event->accept();
        return;
    }
    if (event->matches(QKeySequence::Undo)) {
        Undo();
        return;
    }
    if (event->matches(QKeySequence::Redo)) {
        Redo();
        return;
    }
    GridView::keyPressEvent(event);
}

QList<QAction*> UseIgnoreGrid::MakeMarkActions(QObject* parent) {
    const auto make = [parent](const QString& text, const QString& name) {
        auto* action = new QAction(text, parent);
        action->setObjectName(name);
        return action;
    };
    const auto makeKey = [&](const QString& text, const QString& name, MarkKey key) {
        QAction* action = make(text, name);
        connect(action, &QAction::triggered, this, [this, key] { MarkRuns(key); });
        return action;
    };
    QAction* useOnly = make(QStringLiteral("Use &Only These"), QStringLiteral("MarkUseOnly"));
    connect(useOnly, &QAction::triggered, this, &UseIgnoreGrid::UseOnlySelected);
    return {makeKey(QStringLiteral("&Use\tU"), QStringLiteral("MarkUse"), MarkKey::Use),
            makeKey(QStringLiteral("&Ignore\tI"), QStringLiteral("MarkIgnore"), MarkKey::Ignore),
            makeKey(QStringLiteral("&Turn Over\tSpace"), QStringLiteral("MarkTurnOver"),
                    MarkKey::TurnOver),
            useOnly};
}

void UseIgnoreGrid::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.addActions(MakeMarkActions(&menu));
    for (QAction* action : menu.actions())
        action->setEnabled(SelectsMarksOnly());
    menu.addSeparator();
    menu.addAction(QStringLiteral("U&ndo\tCtrl+Z"), this, &UseIgnoreGrid::Undo)
        ->setEnabled(editor_.CanUndo());
    menu.addAction(QStringLiteral("&Redo\tCtrl+Shift+Z"), this, &UseIgnoreGrid::Redo)
        ->setEnabled(editor_.CanRedo());
    menu.exec(event->globalPos());
}

} // namespace quarnel
