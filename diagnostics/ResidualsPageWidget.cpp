#include "diagnostics/ResidualsPageWidget.h"

#include "diagnostics/ResidualDrawing.h"
#include "output/DrawingWidget.h"
#include "widgets/QtTexts.h"

#include <QVBoxLayout>

namespace quarnel {

namespace {

/// Lines of text as high and characters as wide as a picture must be for its numbers to stand
/// apart.
constexpr int LeastLines = 11;
constexpr int LeastCharacters = 45;

} // namespace

ResidualsPageWidget::ResidualsPageWidget(const FileOnDisk& project)
    : DiagnosticsPageWidget(QStringLiteral("DiagnosticsResiduals")) {
    segments_ = AddPicture(
        project, QStringLiteral("SegmentsPlot"),
        QStringLiteral("ln Y against time with the fitted line"),
        QStringLiteral("ln Y against time: red points enter the fit, blue points do not; dashed, "
                       "two straight segments where they stand out. Right click to copy the "
                       "picture or to save it."));
    residuals_ = AddPicture(
        project, QStringLiteral("ResidualPlot"),
        QStringLiteral("Residuals of the used points against time"),
        QStringLiteral("What is left of ln Y beside the fitted line. Dashed: twice the standard "
                       "deviation. Grey curves: half a reading step. Right click to copy the "
                       "picture or to save it."));
    segments_->SetNameEnding(QStringLiteral("-segments.pdf"));
    residuals_->SetNameEnding(QStringLiteral("-residuals.pdf"));
}

DrawingWidget* ResidualsPageWidget::AddPicture(const FileOnDisk& project, const QString& name,
                                               const QString& accessibleName,
                                               const QString& toolTip) {
    auto* picture = new DrawingWidget(project);
    connect(picture, &DrawingWidget::Told, this, &ResidualsPageWidget::Told);
    picture->setObjectName(name);
    picture->setAccessibleName(accessibleName);
    picture->setToolTip(toolTip);
    picture->setMinimumSize(fontMetrics().averageCharWidth() * LeastCharacters,
                            fontMetrics().lineSpacing() * LeastLines);
    Rows()->addWidget(picture, 1);
    return picture;
}

void ResidualsPageWidget::Release() {
    for (DrawingWidget* picture : {segments_, residuals_})
        picture->Show({}, ToQString(NoComputationText));
}

void ResidualsPageWidget::Fill(Diagnostics& diagnostics, const DiagnosticsLines& /*lines*/,
                               double /*percent*/) {
    segments_->Show(
        [&diagnostics](double width, double height) {
            return DrawSegments(diagnostics, width, height);
        },
        QString());
    residuals_->Show(
        [&diagnostics](double width, double height) {
            return DrawResiduals(diagnostics, width, height);
        },
        QString());
}

} // namespace quarnel
