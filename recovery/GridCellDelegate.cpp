#include "recovery/GridCellDelegate.h"

#include "recovery/GridEditing.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>
#include <cstddef>

namespace quarnel {

namespace {

constexpr int FrameWidth = 2;
constexpr int HandleSize = 7;

/// `share` (0 to 1) of `over` on top of `base`.
QColor Blend(const QColor& base, const QColor& over, double share) {
    const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {mix(base.red(), over.red()), mix(base.green(), over.green()),
            mix(base.blue(), over.blue())};
}

/// How a cell stands to the selection.
struct CellPlace {
    bool inRows = false;
    bool inBlock = false;
    bool isCurrent = false;
    bool isEnd = false; ///< and not the current cell as well
};

CellPlace PlaceOf(GridCell cell, const GridSelection& selection) {
    const GridBlock block = SelectedBlock(selection);
    CellPlace place;
    place.inRows = cell.row >= block.firstRow && cell.row <= block.lastRow;
    place.inBlock =
        place.inRows && cell.column >= block.firstColumn && cell.column <= block.lastColumn;
    place.isCurrent = cell == selection.current;
    place.isEnd = cell == selection.end && !place.isCurrent;
    return place;
}

QColor Background(const CellPlace& place, bool isNumber, const QPalette& palette) {
    const QColor base = isNumber ? palette.color(QPalette::Button) : palette.color(QPalette::Base);
    const bool tinted = isNumber ? place.inRows : place.inBlock && !place.isCurrent;
    return tinted ? Blend(base, palette.color(QPalette::Highlight), 0.3) : base;
}

void DrawFrame(QPainter& painter, const QRect& cell, const QColor& color) {
    painter.setPen(QPen(color, FrameWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(cell.adjusted(1, 1, -1, -1));
}

/// The square stands in the corner of the block, which is the cell's corner away from the current
/// cell.
void DrawEndHandle(QPainter& painter, const QRect& cell, const GridSelection& selection,
                   const QColor& color) {
    QRect handle(0, 0, HandleSize, HandleSize);
    const bool right = selection.end.column >= selection.current.column;
    const bool bottom = selection.end.row >= selection.current.row;
    handle.moveLeft(right ? cell.right() - HandleSize + 1 : cell.left());
    handle.moveTop(bottom ? cell.bottom() - HandleSize + 1 : cell.top());
    painter.fillRect(handle, color);
}

} // namespace

void GridCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const bool isNumber = index.column() == NumberColumn;
    const GridSelection& selection = editor_.Selection();
    const CellPlace place =
        PlaceOf({static_cast<std::size_t>(index.row()) + 1, index.column()}, selection);
    const QColor highlight = option.palette.color(QPalette::Highlight);
    painter->save();
    painter->setClipRect(option.rect);
    painter->fillRect(option.rect, Background(place, isNumber, option.palette));
    // The margin of the toolkit's cells: numbers end at the same place in all grids.
    const int margin =
        option.widget->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) +
        1;
    const QRect textRect = option.rect.adjusted(margin, 0, -margin, 0);
    // What is being typed grows at its end, so its end is what must be seen.
    const QString text = option.fontMetrics.elidedText(
        index.data(Qt::DisplayRole).toString(), place.isCurrent ? Qt::ElideLeft : Qt::ElideRight,
        textRect.width());
    painter->setFont(option.font);
    painter->setPen(option.palette.color(isNumber ? QPalette::ButtonText : QPalette::Text));
    painter->drawText(textRect, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, text);
    if (place.isCurrent && editor_.IsTyping())
        painter->drawLine(textRect.right() + 2, textRect.top() + FrameWidth + 1,
                          textRect.right() + 2, textRect.bottom() - FrameWidth - 1);
    if (place.isCurrent)
        DrawFrame(*painter, option.rect, highlight);
    if (place.isEnd)
        DrawEndHandle(*painter, option.rect, selection, highlight);
    painter->restore();
}

} // namespace quarnel
