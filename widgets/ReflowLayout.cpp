#include "widgets/ReflowLayout.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace quarnel {

namespace {

/// The height below which an item of this width is cut. The toolkit says of a widget only which
/// height it would like.
int LeastHeight(QLayoutItem& item, int width) {
    int height = item.minimumSize().height();
    if (!item.hasHeightForWidth())
        return height;
    const QWidget* widget = item.widget();
    const bool holdsLayout = widget != nullptr && widget->layout() != nullptr;
    return std::max(height, holdsLayout ? widget->layout()->totalMinimumHeightForWidth(width)
                                        : item.minimumHeightForWidth(width));
}

int UsualHeight(QLayoutItem& item, int width) {
    return item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
}

} // namespace

ReflowLayout::ReflowLayout(QWidget* parent)
    : QLayout(parent) {}

/// A layout that goes takes itself out of the one it is in: no item may be in here by then.
ReflowLayout::~ReflowLayout() {
    while (count() > 0)
        const std::unique_ptr<QLayoutItem> taken(takeAt(0));
}

void ReflowLayout::Add(QWidget* widget, int stretch) {
    addWidget(widget);
    entries_.back().stretch = stretch;
}

void ReflowLayout::Add(QLayout* layout, int stretch) {
    addChildLayout(layout);
    addItem(layout);
    entries_.back().stretch = stretch;
}

void ReflowLayout::Arrange(std::vector<Rows> widestFirst) {
    arrangements_ = std::move(widestFirst);
    invalidate();
}

void ReflowLayout::addItem(QLayoutItem* item) {
    entries_.push_back({std::unique_ptr<QLayoutItem>(item), 0});
    invalidate();
}

int ReflowLayout::count() const {
    return static_cast<int>(entries_.size());
}

QLayoutItem* ReflowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? entries_[static_cast<std::size_t>(index)].item.get()
                                         : nullptr;
}

QLayoutItem* ReflowLayout::takeAt(int index) {
    if (itemAt(index) == nullptr)
        return nullptr;
    QLayoutItem* taken = entries_[static_cast<std::size_t>(index)].item.release();
    entries_.erase(entries_.begin() + index);
    // Arrangements name items by their place.
    arrangements_.clear();
    invalidate();
    return taken;
}

Qt::Orientations ReflowLayout::expandingDirections() const {
    Qt::Orientations directions;
    for (const Entry& entry : entries_) {
        directions |= entry.item->expandingDirections() & Qt::Vertical;
        if (entry.stretch > 0)
            directions |= Qt::Horizontal;
    }
    return directions;
}

// ---- Rows ---------------------------------------------------------------------------------------

int ReflowLayout::Gap() const {
    if (spacing() >= 0)
        return spacing();
    const QWidget* around = parentWidget();
    return around == nullptr
               ? 0
               : around->style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, around);
}

/// What a row has to hold for an item to stand in it.
int ReflowLayout::NeededWidth(const Entry& entry) const {
    if (entry.stretch > 0)
        return entry.item->minimumSize().width();
    return std::min(entry.item->sizeHint().width(), entry.item->maximumSize().width());
}

int ReflowLayout::RowWidth(const std::vector<std::size_t>& row) const {
    int width = 0;
    for (const std::size_t i : row)
        if (!entries_[i].item->isEmpty())
            width += NeededWidth(entries_[i]) + (width > 0 ? Gap() : 0);
    return width;
}

ReflowLayout::Rows ReflowLayout::BrokenRows(int width) const {
    Rows rows(1);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        rows.back().push_back(i);
        if (rows.back().size() > 1 && RowWidth(rows.back()) > width) {
            rows.back().pop_back();
            rows.push_back({i});
        }
    }
    return rows;
}

ReflowLayout::Rows ReflowLayout::RowsFor(int width) const {
    if (arrangements_.empty())
        return BrokenRows(width);
    for (const Rows& rows : arrangements_)
        if (std::all_of(rows.begin(), rows.end(),
                        [&](const auto& row) { return RowWidth(row) <= width; }))
            return rows;
    return arrangements_.back();
}

/// Gives the items with stretch their parts of what is left of a row, each up to its greatest
/// width.
void ReflowLayout::SpendSpareWidth(const std::vector<std::size_t>& row, std::vector<Place>& places,
                                   int spare) const {
    std::vector<std::pair<Place*, int>> takers;
    std::size_t place = 0;
    for (const std::size_t i : row)
        if (!entries_[i].item->isEmpty()) {
            if (entries_[i].stretch > 0)
                takers.emplace_back(&places[place], entries_[i].stretch);
            ++place;
        }
    while (spare > 0 && !takers.empty()) {
        int parts = 0;
        for (const auto& [taker, stretch] : takers)
            parts += stretch;
        const int before = spare;
        for (const auto& [taker, stretch] : takers) {
            const int room = taker->item->maximumSize().width() - taker->width;
            const int part = std::clamp((before * stretch + parts - 1) / parts, 0,
                                        std::max(0, std::min(room, spare)));
            taker->width += part;
            spare -= part;
        }
        std::erase_if(takers, [](const auto& taker) {
            return taker.first->width >= taker.first->item->maximumSize().width();
        });
    }
}

ReflowLayout::Row ReflowLayout::LaidOut(const std::vector<std::size_t>& row, int width) const {
    Row laid;
    for (const std::size_t i : row)
        if (!entries_[i].item->isEmpty())
            laid.places.push_back({entries_[i].item.get(), NeededWidth(entries_[i])});
    const int lacking = RowWidth(row) - width;
    // What stands alone in too narrow a row gives way: it may break its own rows.
    if (lacking > 0 && laid.places.size() == 1)
        laid.places[0].width = std::max(laid.places[0].item->minimumSize().width(), width);
    SpendSpareWidth(row, laid.places, -lacking);
    for (const Place& place : laid.places) {
        laid.least = std::max(laid.least, LeastHeight(*place.item, place.width));
        laid.usual = std::max(laid.usual, UsualHeight(*place.item, place.width));
        laid.grows = laid.grows || place.item->expandingDirections().testFlag(Qt::Vertical);
    }
    laid.usual = std::max(laid.least, laid.usual);
    return laid;
}

std::vector<ReflowLayout::Row> ReflowLayout::LaidOutRows(int width) const {
    std::vector<Row> rows;
    for (const auto& row : RowsFor(width)) {
        rows.push_back(LaidOut(row, width));
        if (rows.back().places.empty())
            rows.pop_back();
    }
    return rows;
}

// ---- Sizes --------------------------------------------------------------------------------------

bool ReflowLayout::hasHeightForWidth() const {
    return true;
}

int ReflowLayout::HeightOf(int width, int Row::*height) const {
    const QMargins margins = contentsMargins();
    const std::vector<Row> rows = LaidOutRows(width - margins.left() - margins.right());
    int total =
        margins.top() + margins.bottom() + Gap() * std::max(0, static_cast<int>(rows.size()) - 1);
    for (const Row& row : rows)
        total += row.*height;
    return total;
}

int ReflowLayout::heightForWidth(int width) const {
    return HeightOf(width, &Row::usual);
}

int ReflowLayout::minimumHeightForWidth(int width) const {
    return HeightOf(width, &Row::least);
}

/// All in one row, or in the first arrangement.
QSize ReflowLayout::sizeHint() const {
    const QMargins margins = contentsMargins();
    int width = 0;
    for (const auto& row : RowsFor(QLAYOUTSIZE_MAX)) {
        int rowWidth = 0;
        for (const std::size_t i : row)
            if (!entries_[i].item->isEmpty())
                rowWidth += entries_[i].item->sizeHint().width() + (rowWidth > 0 ? Gap() : 0);
        width = std::max(width, rowWidth);
    }
    width += margins.left() + margins.right();
    return {width, heightForWidth(width)};
}

/// The widest item alone; nobody knows the height before the width.
QSize ReflowLayout::minimumSize() const {
    const QMargins margins = contentsMargins();
    QSize least;
    for (const Entry& entry : entries_)
        if (!entry.item->isEmpty())
            least = least.expandedTo(entry.item->minimumSize());
    return least.expandedTo(QSize(0, 0)) +
           QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

/// First every row gets what it would like, as far as the height goes; the rest is for those that
/// grow.
std::vector<int> ReflowLayout::RowHeights(const std::vector<Row>& rows, int height) const {
    int spare = height - Gap() * std::max(0, static_cast<int>(rows.size()) - 1);
    int wishes = 0;
    int growing = 0;
    for (const Row& row : rows) {
        spare -= row.least;
        wishes += row.usual - row.least;
        growing += row.grows ? 1 : 0;
    }
    int granted = std::clamp(spare, 0, wishes);
    int rest = std::max(0, spare - granted);
    std::vector<int> heights;
    for (const Row& row : rows) {
        const int wish = row.usual - row.least;
        const int grant = wish > 0 ? granted * wish / wishes : 0;
        const int part = row.grows ? rest / growing-- : 0;
        granted -= grant;
        wishes -= wish;
        rest -= part;
        heights.push_back(row.least + grant + part);
    }
    return heights;
}

void ReflowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    const QRect inner = rect.marginsRemoved(contentsMargins());
    const Qt::LayoutDirection direction =
        parentWidget() != nullptr ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    const std::vector<Row> rows = LaidOutRows(inner.width());
    const std::vector<int> heights = RowHeights(rows, inner.height());
    int y = inner.top();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        int x = inner.left();
        for (const Place& place : rows[i].places) {
            const QRect cell(x, y, place.width, heights[i]);
            place.item->setGeometry(QStyle::visualRect(direction, rect, cell));
            x += place.width + Gap();
        }
        y += heights[i] + Gap();
    }
}

} // namespace quarnel
