#include "loggerfiles/ImportPreviewWidget.h"

#include "loggerfiles/ImportHandleWidget.h"
#include "loggerfiles/ImportTexts.h"
#include "loggerfiles/PreviewCurve.h"
#include "widgets/AccessibleRole.h"
#include "widgets/QtTexts.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

struct HandleLook {
    const char* name;
    const char* caption;
    ImportHandleWidget::Half half;
    ImportHandleWidget::Side side;
};

/// By ImportHandle. The two that may stand at one place are taken at different halves or sides.
constexpr std::array<HandleLook, ImportHandleCount> HandleLooks = {
    {{"ImportStaticFromHandle", "First reading of the static level",
      ImportHandleWidget::Half::Lower, ImportHandleWidget::Side::Left},
     {"ImportStaticToHandle", "Last reading of the static level", ImportHandleWidget::Half::Lower,
      ImportHandleWidget::Side::Right},
     {"ImportStartHandle", "Start of the test", ImportHandleWidget::Half::Upper,
      ImportHandleWidget::Side::Left},
     {"ImportEndHandle", "End of the test", ImportHandleWidget::Half::Upper,
      ImportHandleWidget::Side::Right}}};

std::size_t IndexOf(ImportHandle handle) {
    return static_cast<std::size_t>(handle);
}

} // namespace

ImportPreviewWidget::ImportPreviewWidget(QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("ImportPreview"));
    SetAccessibleRole(this, QAccessible::Chart);
    setAccessibleName(QStringLiteral("The whole record, reading against time"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    for (std::size_t i = 0; i < ImportHandleCount; ++i)
        handles_[i] = MakeHandle(static_cast<ImportHandle>(i));
}

ImportHandleWidget* ImportPreviewWidget::MakeHandle(ImportHandle handle) {
    const HandleLook& look = HandleLooks[IndexOf(handle)];
    auto* widget = new ImportHandleWidget(QLatin1String(look.name), QLatin1String(look.caption),
                                          look.half, look.side, this);
    widget->hide();
    connect(widget, &ImportHandleWidget::DraggedTo, this,
            [this, handle](int x) { Q_EMIT HandleMoved(handle, RowAtColumn(x)); });
    connect(widget, &ImportHandleWidget::Stepped, this,
            [this, handle](int rows) { Step(handle, rows); });
    connect(widget, &ImportHandleWidget::SentToEnd, this,
            [this, handle](bool last) { SendToEnd(handle, last); });
    connect(widget, &ImportHandleWidget::FocusChanged, this, qOverload<>(&QWidget::update));
    return widget;
}

bool ImportPreviewWidget::HasRows() const {
    return plan_ != nullptr && plan_->RowCount() > 0;
}

void ImportPreviewWidget::ShowPlan(std::shared_ptr<const ImportPlan> plan,
                                   const ImportMarks& marks) {
    const bool otherReadings = plan_ == nullptr || plan->readings != plan_->readings;
    plan_ = std::move(plan);
    marks_ = marks;
    if (otherReadings)
        FindRange();
    PlaceHandles();
    update();
}

/// Other units or another channel leave a view that the user has chosen; another span of time does
/// not.
void ImportPreviewWidget::FindRange() {
    curve_ = QPixmap();
    if (!HasRows())
        return;
    const std::span<const std::int64_t> times = plan_->readings->Times();
    const std::span<const double> readings = plan_->readings->Readings();
    const auto [first, last] = std::minmax_element(times.begin(), times.end());
    const auto [least, greatest] = std::minmax_element(readings.begin(), readings.end());
    least_ = *least;
    greatest_ = *greatest;
    const bool otherTimes = firstTime_ != static_cast<double>(*first) ||
                            lastTime_ != std::max(static_cast<double>(*last), firstTime_ + 1);
    firstTime_ = static_cast<double>(*first);
    lastTime_ = std::max(static_cast<double>(*last), firstTime_ + 1);
    if (otherTimes)
        ShowAll();
}

// ---- Where things stand ------------------------------------------------------------------------

QRect ImportPreviewWidget::Plot() const {
    const int line = fontMetrics().height();
    const int grip = handles_.front()->Grip();
    const int labels = fontMetrics().horizontalAdvance(QStringLiteral("-0000.000")) + 8;
    return rect().adjusted(labels + grip, line + 4, -grip - 6, -line - 6);
}

double ImportPreviewWidget::ColumnOfTime(double time) const {
    const QRect plot = Plot();
    return plot.left() + (time - from_) / (to_ - from_) * (plot.width() - 1);
}

int ImportPreviewWidget::ColumnOfRow(std::size_t row) const {
    const QRect plot = Plot();
    const double column = ColumnOfTime(static_cast<double>(plan_->readings->Times()[row]));
    return static_cast<int>(std::lround(std::clamp(column, plot.left() - 1e6, plot.right() + 1e6)));
}

std::size_t ImportPreviewWidget::RowAtColumn(int x) const {
    const QRect plot = Plot();
    const double time = from_ + (to_ - from_) * (x - plot.left()) / std::max(plot.width() - 1, 1);
    return NearestRow(plan_->readings->Times(), time);
}

void ImportPreviewWidget::PlaceHandles() {
    const QRect plot = Plot();
    for (std::size_t i = 0; i < ImportHandleCount; ++i) {
        const bool shown = HasRows() && marks_[i].has_value();
        if (shown) {
            const int x = std::clamp(ColumnOfRow(*marks_[i]), plot.left(), plot.right());
            handles_[i]->PlaceAt(x, plot);
            const std::int64_t time = plan_->readings->Times()[*marks_[i]];
            handles_[i]->ShowRow(static_cast<int>(*marks_[i]),
                                 static_cast<int>(plan_->RowCount()) - 1,
                                 ToQString(RecordTimeText(plan_->file->reading.record, time)));
        }
        handles_[i]->setVisible(shown);
    }
}

QSize ImportPreviewWidget::sizeHint() const {
    const int line = fontMetrics().height();
    return {line * 40, line * 12};
}

QSize ImportPreviewWidget::minimumSizeHint() const {
    const int line = fontMetrics().height();
    return {line * 14, line * 7};
}

// ---- Moving lines and view ---------------------------------------------------------------------

void ImportPreviewWidget::Step(ImportHandle handle, int rows) {
    const auto last = static_cast<std::int64_t>(plan_->RowCount()) - 1;
    const auto row = static_cast<std::int64_t>(*marks_[IndexOf(handle)]) + rows;
    Q_EMIT HandleMoved(handle, static_cast<std::size_t>(std::clamp<std::int64_t>(row, 0, last)));
    if (const auto now = marks_[IndexOf(handle)])
        BringIntoView(*now);
}

void ImportPreviewWidget::SendToEnd(ImportHandle handle, bool last) {
    Q_EMIT HandleMoved(handle, last ? plan_->RowCount() - 1 : 0);
    if (const auto now = marks_[IndexOf(handle)])
        BringIntoView(*now);
}

void ImportPreviewWidget::BringIntoView(std::size_t row) {
    const auto time = static_cast<double>(plan_->readings->Times()[row]);
    if (time >= from_ && time <= to_)
        return;
    const double span = to_ - from_;
    SetView(time - span / 2, time + span / 2);
}

void ImportPreviewWidget::ShowAll() {
    SetView(firstTime_, lastTime_);
}

void ImportPreviewWidget::SetView(double from, double to) {
    constexpr double ShortestView = 1000; // microseconds; finer than any logger
    const double all = lastTime_ - firstTime_;
    const double span = std::clamp(to - from, std::min(ShortestView, all), all);
    from_ = std::clamp(from, firstTime_, lastTime_ - span);
    to_ = from_ + span;
    curve_ = QPixmap();
    PlaceHandles();
    update();
}

void ImportPreviewWidget::wheelEvent(QWheelEvent* event) {
    constexpr double StepsOfANotch = 120;
    constexpr double ZoomOfANotch = 1.25;
    event->accept();
    if (!HasRows() || event->angleDelta().y() == 0)
        return;
    const QRect plot = Plot();
    const double share =
        std::clamp((event->position().x() - plot.left()) / std::max(plot.width() - 1, 1), 0.0, 1.0);
    const double under = from_ + (to_ - from_) * share;
    const double span =
        std::clamp((to_ - from_) * std::pow(ZoomOfANotch, -event->angleDelta().y() / StepsOfANotch),
                   1.0, lastTime_ - firstTime_);
    SetView(under - span * share, under + span * (1 - share));
}

void ImportPreviewWidget::mousePressEvent(QMouseEvent* event) {
    if (HasRows() && event->button() == Qt::LeftButton && Plot().contains(event->pos()))
        Q_EMIT RowClicked(RowAtColumn(event->pos().x()));
}

void ImportPreviewWidget::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
    if (HasRows())
        ShowAll();
}

void ImportPreviewWidget::resizeEvent(QResizeEvent* /*event*/) {
    curve_ = QPixmap();
    PlaceHandles();
}

void ImportPreviewWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        curve_ = QPixmap();
        PlaceHandles();
    }
    QWidget::changeEvent(event);
}

// ---- Painting ----------------------------------------------------------------------------------

void ImportPreviewWidget::DrawCurve() {
    const QRect plot = Plot();
    curve_ = QPixmap(size() * devicePixelRatioF());
    curve_.setDevicePixelRatio(devicePixelRatioF());
    curve_.fill(palette().color(QPalette::Base));
    QPainter painter(&curve_);
    PaintAxes(painter);
    painter.setClipRect(plot);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Text), 1.2));
    const double scale = (plot.height() - 5) / (greatest_ > least_ ? greatest_ - least_ : 1.0);
    const double middle = greatest_ > least_ ? 0 : (plot.height() - 5) / 2.0;
    const auto y = [&](double reading) {
        return plot.bottom() - 2 - middle - (reading - least_) * scale;
    };
    QPolygonF line;
    for (const CurveColumn& column : CurveOf(plan_->readings->Times(), plan_->readings->Readings(),
                                             from_, to_, std::max(plot.width() - 1, 1))) {
        const double x = plot.left() + column.position;
        line << QPointF(x, y(column.first)) << QPointF(x, y(column.least))
             << QPointF(x, y(column.greatest)) << QPointF(x, y(column.last));
    }
    painter.drawPolyline(line);
}

void ImportPreviewWidget::PaintAxes(QPainter& painter) const {
    const QRect plot = Plot();
    const LoggerRecord& record = plan_->file->reading.record;
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(plot.adjusted(-1, -1, 0, 0));
    painter.setPen(palette().color(QPalette::Text));
    const int line = fontMetrics().height();
    const int besideGrips = plot.left() - handles_.front()->Grip() - 4;
    const auto label = [&](const QString& text, int top) {
        painter.drawText(QRect(0, top, besideGrips, line), Qt::AlignRight | Qt::AlignVCenter, text);
    };
    const auto number = [](double reading) { return QString::number(reading, 'g', 6); };
    label(ToQString(NameAt(LengthUnitNames, plan_->readings->LevelUnit())), plot.top() - line - 2);
    label(number(greatest_), plot.top());
    if (greatest_ > least_)
        label(number(least_), plot.bottom() - line);
    const QRect below(plot.left(), plot.bottom() + 4, plot.width(), line);
    const auto time = [&](double at) {
        return ToQString(RecordTimeText(record, static_cast<std::int64_t>(std::llround(at)))) +
               (record.timesAreClock ? QString() : QStringLiteral(" sec"));
    };
    painter.drawText(below, Qt::AlignLeft, time(from_));
    painter.drawText(below, Qt::AlignRight, time(to_));
}

void ImportPreviewWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (!HasRows()) {
        painter.fillRect(rect(), palette().color(QPalette::Base));
        return;
    }
    if (curve_.isNull() || curve_.devicePixelRatio() != devicePixelRatioF())
        DrawCurve();
    painter.drawPixmap(0, 0, curve_);
    PaintMarks(painter);
}

void ImportPreviewWidget::PaintMarks(QPainter& painter) const {
    const QRect plot = Plot();
    const auto mark = [this](ImportHandle handle) { return marks_[IndexOf(handle)]; };
    QColor accent = palette().color(QPalette::Highlight);
    if (const auto from = mark(ImportHandle::StaticFrom), to = mark(ImportHandle::StaticTo);
        from && to) {
        QColor shade = accent;
        shade.setAlpha(70);
        const int left = std::clamp(ColumnOfRow(*from), plot.left(), plot.right());
        const int right = std::clamp(ColumnOfRow(*to), plot.left(), plot.right());
        painter.fillRect(QRect(left, plot.top(), right - left + 1, plot.height()), shade);
    }
    for (const Caption& caption : Captions()) {
        const int x = ColumnOfRow(*mark(caption.handle));
        painter.setPen(QPen(accent, handles_[IndexOf(caption.handle)]->hasFocus() ? 3 : 2));
        painter.drawLine(x, plot.top(), x, plot.bottom());
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(caption.rect, Qt::AlignCenter, caption.text);
    }
}

std::vector<ImportPreviewWidget::Caption> ImportPreviewWidget::Captions() const {
    const QRect plot = Plot();
    const int height = fontMetrics().height();
    std::vector<Caption> captions;
    for (const auto& [handle, text] : {std::pair(ImportHandle::Start, QStringLiteral("Start")),
                                       std::pair(ImportHandle::End, QStringLiteral("End"))}) {
        const auto row = marks_[IndexOf(handle)];
        const int x = row ? ColumnOfRow(*row) : plot.left() - 1;
        if (!plot.contains(x, plot.center().y()))
            continue;
        const int width = fontMetrics().horizontalAdvance(text);
        // The unit of the axis stands left of the plot.
        const int left =
            std::clamp(x - width / 2, plot.left(), std::max(plot.left(), rect().width() - width));
        captions.push_back({handle, text, QRect(left, plot.top() - height - 2, width, height)});
    }
    if (captions.size() == 2)
        PartCaptions(captions[0].rect, captions[1].rect);
    return captions;
}

/// Lines that are close move the words above them apart, each by half, as far as the edges allow.
void ImportPreviewWidget::PartCaptions(QRect& first, QRect& second) const {
    const int gap = fontMetrics().averageCharWidth();
    const int lacking = first.right() + 1 + gap - second.left();
    if (lacking <= 0)
        return;
    first.translate(-lacking / 2, 0);
    second.translate(lacking - lacking / 2, 0);
    const int intoPlot = std::max(0, Plot().left() - first.left());
    const int intoWidget = std::min(0, rect().right() - second.right());
    first.translate(intoPlot + intoWidget, 0);
    second.translate(intoPlot + intoWidget, 0);
}

} // namespace quarnel
