#include "kcompute/UseIgnoreGrid.h"

#include "kcompute/UseIgnore.h"
#include "recovery/RecoveryDa.h"
#include "recovery/RecoveryData.h"
#include "widgets/QtTexts.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace quarnel {

namespace {

constexpr std::string_view CriteriaHeading = "Criteria\r\n(U/I)";
/// The key that a typed character is. Only these three do anything: no lower-case letter does.
std::optional<MarkKey> MarkKeyOf(const QKeyEvent& event) {
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
    SetWidestTexts({QString(), QStringLiteral("100000.00"), QStringLiteral("-1.234567E-05"),
                    QStringLiteral("Ignore")});
}

void UseIgnoreGrid::Refill() {
    model_.ShowRows(std::max<std::size_t>(1, working_.recovery.RecoveryPoints->size()));
    // In the column of the marks, so that its keys work as soon as the grid has the focus.
    setCurrentIndex(model_.index(0, CriteriaColumn));
    scrollToTop();
}

std::optional<UseIgnoreGrid::RowRange> UseIgnoreGrid::RowsToMark() const {
    if (!currentIndex().isValid())
        return std::nullopt;
    const ViewBlock block = SelectedCells();
    if (block.current.column != CriteriaColumn || block.end.column != CriteriaColumn)
        return std::nullopt;
    return RowRange{std::min(block.current.row, block.end.row),
                    std::max(block.current.row, block.end.row)};
}

void UseIgnoreGrid::MarkSelected(MarkKey key) {
    const std::optional<RowRange> rows = RowsToMark();
    if (!rows)
        return;
    editor_.Press(key, static_cast<std::size_t>(rows->first), static_cast<std::size_t>(rows->last));
    ShowMarks();
    Q_EMIT MarksChanged();
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
}

void UseIgnoreGrid::keyPressEvent(QKeyEvent* event) {
    if (const std::optional<MarkKey> key = MarkKeyOf(*event)) {
        MarkSelected(*key);
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

void UseIgnoreGrid::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    const auto add = [this, &menu](const QString& text, const QString& name, MarkKey key) {
        QAction* action = menu.addAction(text, this, [this, key] { MarkSelected(key); });
        action->setObjectName(name);
        action->setEnabled(RowsToMark().has_value());
    };
    add(QStringLiteral("&Use\tU"), QStringLiteral("MarkUse"), MarkKey::Use);
    add(QStringLiteral("&Ignore\tI"), QStringLiteral("MarkIgnore"), MarkKey::Ignore);
    add(QStringLiteral("&Turn Over\tSpace"), QStringLiteral("MarkTurnOver"), MarkKey::TurnOver);
    menu.addSeparator();
    menu.addAction(QStringLiteral("U&ndo\tCtrl+Z"), this, &UseIgnoreGrid::Undo)
        ->setEnabled(editor_.CanUndo());
    menu.addAction(QStringLiteral("&Redo\tCtrl+Shift+Z"), this, &UseIgnoreGrid::Redo)
        ->setEnabled(editor_.CanRedo());
    menu.exec(event->globalPos());
}

} // namespace quarnel
