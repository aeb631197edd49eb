#pragma once

#include "output/DrawingPainter.h"
#include "output/PlotDrawing.h"
#include "project/FileOnDisk.h"

#include <QFrame>
#include <QPixmap>
#include <functional>

class QAction;

namespace quarnel {

/// What a drawing is painted with on a screen of this palette: whatever stands for something has a
/// contrast of 3 to 1 with the ground, by a halo where its own colour, which is fixed, has not.
Inks ScreenInks(const QPalette& palette);

/// An area that shows a drawing, made anew for every size of the area and painted once: what moves
/// over it is painted on its picture. Its context menu copies the drawing or saves it as a picture.
class DrawingWidget : public QFrame {
    Q_OBJECT
public:
    /// Makes the drawing for an area of the given size in twips.
    using DrawFor = std::function<Drawing(double areaWidth, double areaHeight)>;

    /// `project` is the open project, whose file no picture may replace.
    explicit DrawingWidget(const FileOnDisk& project, QWidget* parent = nullptr);

    /// Shows what `draw` makes, or without one only `sentence`. What `drawLegend` makes is shown
    /// with it on screen; into pictures it goes where that was asked for.
    void Show(DrawFor draw, const QString& sentence, DrawFor drawLegend = {});

    /// What the name suggested for a picture has behind the project's, such as "-residuals.pdf".
    void SetNameEnding(const QString& ending) { nameEnding_ = ending; }

    /// What is shown, in twips and without the legend; empty where there is nothing to draw.
    const Drawing& Shown() const { return drawing_; }
    /// The legend on screen.
    const Drawing& ShownLegend() const { return legend_; }
    /// How often the drawing was painted. What moves over it must not make this grow.
    int TimesPainted() const { return timesPainted_; }

Q_SIGNALS:
    /// A picture went into a file or could not be written; `said` names the file.
    void Told(const QString& said);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    QSize PixelsOf(int widthTwips, int heightTwips) const;
    void DrawAgain();
    double TwipsPerPixel() const;
    /// A position in this widget on the surface of the drawing (twips), and back.
    QPointF ToTwips(QPointF position) const;
    QPointF ToPixels(double x, double y) const;
    /// Paints what stands over the drawing on screen alone, in pixels of this widget.
    virtual void PaintOver(QPainter& painter);

    QAction* copy_ = nullptr;
    QAction* save_ = nullptr;
    /// Checked: pictures carry the legend. For the menu of who has a legend.
    QAction* legendOnPictures_ = nullptr;

private:
    const QPixmap& Picture();
    Drawing ForPictures() const;
    void Copy();
    void SaveAsPicture();

    const FileOnDisk& project_;
    QString nameEnding_ = QStringLiteral(".pdf");
    DrawFor draw_;
    DrawFor drawLegend_;
    QString sentence_;
    Drawing drawing_;
    Drawing legend_;
    QPixmap picture_; ///< of the drawing as it looks here; null when it is to be painted anew
    int timesPainted_ = 0;
};

} // namespace quarnel
