#include "output/PlotWidget.h"

#include "output/PlotLegend.h"

#include <QAction>

namespace quarnel {

namespace {

/// In this width no label runs into another, and this height leaves the axes a finger's breadth:
/// on a small screen with large letters the plot must leave room for K below it.
constexpr int LeastWidth = 4700;
constexpr int LeastHeight = 2700;
constexpr int UsualWidth = 9500;
constexpr int UsualHeight = 6500;

} // namespace

PlotWidget::PlotWidget(const FileOnDisk& project, QWidget* parent)
    : DrawingWidget(project, parent) {
    setObjectName(QStringLiteral("Plot1"));
    setAccessibleName(QStringLiteral("Plot of Y against time"));
    setToolTip(QStringLiteral(
        "Change in head Y (logarithmic) against time: red points enter the fit, blue points do "
        "not. Right click to copy the plot or to save it as a picture."));
    copy_->setText(QStringLiteral("&Copy"));
    copy_->setObjectName(QStringLiteral("CopyPlot"));
    save_->setText(QStringLiteral("&Save as Picture..."));
    save_->setObjectName(QStringLiteral("SavePlot"));

    auto* separator = new QAction(this);
    separator->setSeparator(true);
    headRange_ = new QAction(QStringLiteral("Show &Head Range 0.20-0.30"), this);
    headRange_->setObjectName(QStringLiteral("ShowHeadRange"));
    headRange_->setCheckable(true);
    connect(headRange_, &QAction::toggled, this, &PlotWidget::DrawAgain);
    addActions({separator, headRange_, legendOnPictures_});
    ShowComputation(nullptr);
}

QSize PlotWidget::sizeHint() const {
    return PixelsOf(UsualWidth, UsualHeight);
}

QSize PlotWidget::minimumSizeHint() const {
    return PixelsOf(LeastWidth, LeastHeight);
}

void PlotWidget::ShowComputation(ComputationPtr computation) {
    headRange_->setEnabled(computation != nullptr);
    if (computation == nullptr) {
        Show({}, QStringLiteral("Press Compute K/ Plot"));
        return;
    }
    Show(
        [this, computation = std::move(computation)](double areaWidth, double areaHeight) {
            PlotLayout layout = ScreenPlotLayout(areaWidth, areaHeight);
            layout.showHeadRange = headRange_->isChecked();
            return DrawPlot(PlotContents(*computation), layout);
        },
        QString(),
        [](double areaWidth, double areaHeight) {
            const PlotLayout layout = ScreenPlotLayout(areaWidth, areaHeight);
            return DrawLegend(layout, layout.top / 2);
        });
}

} // namespace quarnel
